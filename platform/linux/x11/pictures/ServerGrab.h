// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

namespace ardeno {

// Keeps other clients waiting, so that windows and pixels stay as they are. Nothing but the server is asked meanwhile.
class ServerGrab final {
public:
    explicit ServerGrab(const X11Connection &connection) : m_connection(connection)
    {
        xcb_grab_server(connection.xcb());
        ++held;
    }

    ServerGrab(const ServerGrab &) = delete;
    ServerGrab &operator=(const ServerGrab &) = delete;

    ~ServerGrab()
    {
        --held;
        xcb_ungrab_server(m_connection.xcb());
        xcb_flush(m_connection.xcb());
    }

    // By this thread.
    static bool isHeld() { return held > 0; }

private:
    inline static thread_local int held = 0;

    const X11Connection &m_connection;
};

} // namespace ardeno
