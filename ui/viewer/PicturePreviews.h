// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

// The pictures that were shown last, as large as they were drawn: a viewer shows them until it has read the file.
// Main thread only.
namespace ardeno::PicturePreviews {

void keep(const QString &path, const QImage &image);

// Null when there is none, or the file has changed since.
QImage find(const QString &path);

} // namespace ardeno::PicturePreviews
