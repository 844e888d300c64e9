// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QRect>
#include <QSize>

#include <memory>

namespace ardeno {

enum class PixelTransport { SharedMemory, Socket };

// Pixels of 32 bits in memory order blue, green, red, unused, in rows without gaps, where the server has put them.
struct FetchedPixels {
    char *bytes = nullptr;
    QSize size = {};
    std::shared_ptr<const void> memory = {}; // What the bytes lie in.
};

// The pixels of a drawable of 32 bits a pixel. Falls back to the socket when the server cannot share memory with this
// process. Throws Failure when the server has gone or refuses (the rectangle does not fit).
FetchedPixels fetchPixels(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                          PixelTransport transport);

// Whether the screen itself has such pixels, so that they can be fetched from the root window.
bool hasUsualPixels(const X11Connection &connection);

// Brings the bytes of each pixel in order when the server keeps them the other way round.
void toLittleEndian(const X11Connection &connection, const FetchedPixels &pixels);

} // namespace ardeno
