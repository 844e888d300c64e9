// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Region.h"
#include "platform/linux/x11/windows/X11Connection.h"

namespace ardeno {

// Has the server draw the backgrounds and the owner everything else in this part of a top-level window, and of all
// windows inside it. The region is relative to the outer top left corner. Made while the server is grabbed.
void exposeTree(const X11Connection &connection, xcb_window_t topLevel, int border, const X11Region &region);

} // namespace ardeno
