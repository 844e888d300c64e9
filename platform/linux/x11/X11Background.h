// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/X11Drawing.h"

#include <optional>

namespace ardeno {

// What the root window shows where no window is. Never read from the screen, which may show anything.
class X11Background final {
public:
    enum class CompositingManager { Running, Absent };

    // Redirection must have begun on this connection.
    X11Background(const X11Connection &connection, const RenderFormats &formats, CompositingManager manager);
    X11Background(const X11Background &) = delete;
    X11Background &operator=(const X11Background &) = delete;
    ~X11Background();

    // A window of this object's own, only there to be painted by the server; XCB_NONE when none was needed.
    xcb_window_t window() const { return m_window; }

    // Draws this area of the root with its top left corner at the point; clipped by the caller.
    void draw(const RenderPicture &picture, const QRect &area, const QPoint &at) const;

private:
    void useWallpaper(const RenderFormats &formats, xcb_pixmap_t pixmap);
    void usePaintedWindow(const RenderFormats &formats);

    const X11Connection &m_connection;
    std::optional<RenderPicture> m_picture = {}; // Absent: black.
    xcb_window_t m_window = XCB_NONE;
};

} // namespace ardeno
