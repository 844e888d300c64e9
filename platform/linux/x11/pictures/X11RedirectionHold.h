// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Redirection.h"
#include "support/FileDescriptor.h"

#include <mutex>
#include <thread>

namespace ardeno {

// Keeps a redirection for as long as it lives and follows the server's events on a thread of its own, so that no
// window is drawn before it is watched.
class X11RedirectionHold final {
public:
    // Throws what X11Redirection does.
    explicit X11RedirectionHold(const QByteArray &displayName);
    X11RedirectionHold(const X11RedirectionHold &) = delete;
    X11RedirectionHold &operator=(const X11RedirectionHold &) = delete;
    ~X11RedirectionHold();

    // The redirection for one thread, until the lock goes.
    struct Use {
        std::unique_lock<std::mutex> lock;
        X11Redirection &redirection;
    };

    Use use() { return {std::unique_lock(m_mutex), m_redirection}; }

    bool isAlive();

private:
    void follow();

    X11Redirection m_redirection;
    std::mutex m_mutex;
    FileDescriptor m_wake; // An eventfd; readable when the thread must end.
    std::thread m_thread;
};

} // namespace ardeno
