// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"
#include "support/AtomicFile.h"

#include <QSet>
#include <QString>

#include <optional>
#include <utility>

namespace ardeno {

// The folder of thumbnails: one PNG file per picture, named after its path, size and time of change. All that goes
// wrong means that there is no such thumbnail.
class ThumbnailCache final {
public:
    explicit ThumbnailCache(QString folder) : m_folder(std::move(folder)) {}

    // As it was kept for the picture in exactly this state.
    std::optional<Picture> find(const QString &path, const FileStamp &stamp) const;
    // In the place of what was kept of the same picture before.
    void keep(const QString &path, const FileStamp &stamp, const Picture &thumbnail) const;

    void remove(const QSet<QString> &paths) const;
    void keepOnly(const QSet<QString> &paths) const;

private:
    QString fileOf(const QString &path, const FileStamp &stamp) const;

    QString m_folder;
};

} // namespace ardeno
