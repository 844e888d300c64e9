// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CheckpointMedia.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QPainter>

#include <functional>

namespace ardeno {

// The small pictures that rows of a list show: asked for when a row is drawn, there when it is drawn again.
class ThumbnailShelf final {
public:
    static constexpr QSize shownSize = QSize(72, 40); // Logical pixels.

    // Arrived is called when a picture is there that was drawn as missing before.
    ThumbnailShelf(CheckpointMedia &media, std::function<void()> arrived, QSize size = shownSize)
        : m_media(media), m_arrived(std::move(arrived)), m_size(size)
    {
    }

    // The checkpoint's picture in the middle of the area, or a place for it.
    void draw(QPainter &painter, const QRectF &area, const Checkpoint &checkpoint, qreal radius = 4);

private:
    // The checkpoint's picture, null while there is none. The ratio is that of the screen.
    const QImage *find(const Checkpoint &checkpoint, qreal ratio);

    // As many as several pages of a list show; a row that comes back asks again.
    static constexpr int mostKept = 120;

    void take(const QString &path, const Thumbnail &thumbnail, qreal ratio);

    CheckpointMedia &m_media;
    std::function<void()> m_arrived;
    QSize m_size;                                                         // Logical pixels.
    QCache<QString, QImage> m_images = QCache<QString, QImage>(mostKept); // A null one: there is nothing to show.
    QHash<QString, Thumbnails::Request> m_asked;
};

} // namespace ardeno
