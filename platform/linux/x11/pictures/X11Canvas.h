// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"
#include "platform/linux/x11/pictures/X11Drawing.h"
#include "platform/linux/x11/pictures/X11Extensions.h"
#include "platform/linux/x11/pictures/X11PixelFetch.h"
#include "platform/linux/x11/pictures/X11SharedBytes.h"

#include <QPoint>
#include <QRect>

#include <functional>
#include <memory>

namespace ardeno {

// Draws this area of the desktop (root coordinates) unscaled, with its top left corner at this point of the picture,
// and nothing beside it.
using PaintDesktop = std::function<void(const RenderPicture &picture, const QRect &area, const QPoint &at)>;

// The picture of all displays, composed and scaled by the X server.
class X11Canvas final {
public:
    // Throws std::bad_alloc.
    X11Canvas(const X11Connection &connection, const X11Extensions &extensions, const RenderFormats &formats,
              const CanvasRequest &request);

    void draw(const DisplayPlacement &placement, const PaintDesktop &paint);

    // What has been drawn until now. Throws what fetchPixels() does.
    FetchedPixels pixels() const;

    // The pixels that a display fills: its borders rounded, at the edges of the canvas as far as there are pixels.
    static QRect pixelArea(const WindowRect &target, QSize canvas);
    // The display's bounds in whole points.
    static QRect screenArea(const CaptureDisplay &display);
    // Whether pixels of the display and of the canvas are the same.
    static bool isUnscaled(const DisplayPlacement &placement);

private:
    bool drawInSharedMemory();
    void fillBetween(const CanvasRequest &request);
    void drawScaled(const RenderPicture &desktop, const DisplayPlacement &placement, const QRect &pixels);

    const X11Connection &m_connection;
    const X11Extensions &m_extensions;
    const RenderFormats &m_formats;
    QSize m_size;
    std::shared_ptr<X11SharedBytes> m_shared = {}; // Where the server draws; null when it keeps the pixels.
    RenderPicture m_picture = {};
};

} // namespace ardeno
