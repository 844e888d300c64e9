// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

#include <QCache>
#include <QHash>
#include <QImage>

#include <functional>

namespace ardeno {

// The small pictures that rows of a list show: asked for when a row is drawn, there when it is drawn again.
class ThumbnailShelf final {
public:
    static constexpr QSize shownSize = QSize(72, 40); // Logical pixels.

    // Arrived is called when a picture is there that was drawn as missing before.
    ThumbnailShelf(AppStore &store, std::function<void()> arrived) : m_store(store), m_arrived(std::move(arrived)) {}

    // The checkpoint's picture, null while there is none. The ratio is that of the screen.
    const QImage *find(const Checkpoint &checkpoint, qreal ratio);

private:
    // As many as several pages of a list show; a row that comes back asks again.
    static constexpr int mostKept = 120;

    void take(const QString &path, const Thumbnail &thumbnail, qreal ratio);

    AppStore &m_store;
    std::function<void()> m_arrived;
    QCache<QString, QImage> m_images = QCache<QString, QImage>(mostKept); // A null one: there is nothing to show.
    QHash<QString, Thumbnails::Request> m_asked;
};

} // namespace ardeno
