// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"
#include "platform/linux/x11/pictures/X11PixelFetch.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>
#include <QRect>

namespace ardeno {

// The pointer's picture; the X server keeps it apart from the screen.
struct X11Cursor {
    QRect area = {};               // Root coordinates; empty when nothing is shown.
    QList<quint32> pixels = {};    // Premultiplied, alpha in the highest byte, blue in the lowest.
    xcb_window_t under = XCB_NONE; // The top-level window at the pointer, which chose the picture.

    // Needs XFixes.
    static X11Cursor read(const X11Connection &connection);

    // Draws it where it stands on this display, scaled with it.
    void blend(const FetchedPixels &canvas, const DisplayPlacement &placement) const;
};

} // namespace ardeno
