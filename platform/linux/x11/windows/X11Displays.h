// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowServer.h"
#include "platform/linux/x11/windows/X11Connection.h"

namespace ardeno {

// The monitors in the server's order; the whole screen as one display where the server knows no monitors. Empty when
// no monitor is on or the connection is lost. A point is a pixel of the root window.
QList<Display> readDisplays(const X11Connection &connection);

} // namespace ardeno
