// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11PixelFetch.h"
#include "platform/linux/x11/pictures/X11SharedBytes.h"

#include <memory>

#include <xcb/shm.h>

namespace ardeno {

// Memory into which the server puts one frame after the other.
class X11FrameBuffer final {
public:
    // The connection outlives the buffer.
    X11FrameBuffer(const X11Connection &connection, QSize size, bool hasSharedMemory);
    X11FrameBuffer(const X11FrameBuffer &) = delete;
    X11FrameBuffer &operator=(const X11FrameBuffer &) = delete;
    ~X11FrameBuffer();

    // An area of the buffer's size, of a drawable of 32 bits a pixel; valid until the next call. Throws what
    // fetchPixels() does.
    FetchedPixels fetch(xcb_drawable_t drawable, const QPoint &from);

private:
    const X11Connection &m_connection;
    QSize m_size;
    std::shared_ptr<X11SharedBytes> m_shared = {}; // Null: the server cannot share memory with this process.
    xcb_shm_seg_t m_segment = XCB_NONE;
};

} // namespace ardeno
