// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QByteArray>
#include <QRect>

namespace ardeno {

enum class PixelTransport { SharedMemory, Socket };

// The pixels of a drawable of 32 bits a pixel in memory order blue, green, red, unused. Falls back to the socket when
// the server cannot share memory with this process. Throws std::bad_alloc, and Failure when the server has gone or
// refuses (the rectangle does not fit).
QByteArray fetchPixels(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                       PixelTransport transport);

} // namespace ardeno
