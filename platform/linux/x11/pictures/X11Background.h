// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Drawing.h"

#include <optional>

namespace ardeno {

// What the root window shows where no window is. Never read from the screen, which may show anything.
class X11Background final {
public:
    // Redirection must have begun on this connection.
    X11Background(const X11Connection &connection, const RenderFormats &formats, bool hasCompositor);
    X11Background(const X11Background &) = delete;
    X11Background &operator=(const X11Background &) = delete;

    // Whether it is as good as new for as long as the wallpaper is the same; else the root's own background may have
    // been changed without a word.
    bool isWallpaper() const { return m_isWallpaper; }

    // Draws this area of the root with its top left corner at the point; clipped by the caller.
    void draw(const RenderPicture &picture, const QRect &area, const QPoint &at) const;

private:
    void useWallpaper(const RenderFormats &formats, xcb_pixmap_t pixmap);
    void usePaintedWindow(const RenderFormats &formats);

    const X11Connection &m_connection;
    std::optional<RenderPicture> m_picture = {}; // Absent: black.
    bool m_isWallpaper = true;
};

} // namespace ardeno
