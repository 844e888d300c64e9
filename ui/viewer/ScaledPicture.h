// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace ardeno {

// A large picture together with copies of half, a quarter … of its size, so that it can be drawn at any scale in the
// time that the drawn pixels need. A plain value; the images are shared.
struct ScaledPicture {
    QImage full = {};
    QList<QImage> halves = {}; // Each half as large as the one before, the first half as large as the full one.

    // The smallest image that is at least as wide.
    const QImage &atLeast(double width) const;

    // Of the full size of the picture, averaged over its pixels.
    QImage averaged(const QSize &size) const;
};

// These take time and are meant for a worker.
namespace PictureReading {

// Of the whole picture; empty where nothing can be shown.
QSize size(const QString &path);

// Over white. Null when the file is missing, damaged or too large.
QImage read(const QString &path);

QList<QImage> halves(const QImage &full);

} // namespace PictureReading

} // namespace ardeno
