// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>

namespace ardeno {

// Hears from the X server when windows of applications come or go; asks nothing meanwhile. A connection of its own,
// because answers to questions would carry off the events of a shared one.
class X11ClientWatch final {
public:
    // The handler is called on this thread, once for changes in quick succession. Throws what X11Connection does.
    explicit X11ClientWatch(std::function<void()> handler);

private:
    // With another manager, whether windows are listed may have changed, too.
    enum class Change { None, Windows, Manager };

    Change changeOf(const xcb_generic_event_t &event) const;
    void chooseEvents();
    void readEvents();

    X11Connection m_connection;
    QSocketNotifier m_socket;
    QTimer m_delay;
    std::function<void()> m_handler;
    bool m_isListed = false; // By a window manager.
};

} // namespace ardeno
