// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <cstddef>

#include <xcb/shm.h>

namespace ardeno {

// Memory that this process and the X server see; gone with the last of both, however they end.
class X11SharedBytes final {
public:
    explicit X11SharedBytes(size_t size);
    X11SharedBytes(const X11SharedBytes &) = delete;
    X11SharedBytes &operator=(const X11SharedBytes &) = delete;
    ~X11SharedBytes();

    // Gives the memory to the server under this name. False when there is none or the server cannot take it, as one
    // on another machine. Needs shared memory 1.2.
    bool attach(const X11Connection &connection, xcb_shm_seg_t segment) const;

    char *bytes() const { return static_cast<char *>(m_bytes); }

private:
    size_t m_size;
    int m_descriptor;
    void *m_bytes;
};

} // namespace ardeno
