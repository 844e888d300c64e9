// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QList>

namespace ardeno {

// Which windows there are, with or without a window manager.
namespace WindowTree {

// What stands behind a top-level window.
struct Client {
    xcb_window_t window = XCB_NONE; // The application's window: inside the frame, or the top-level window itself.
    bool isManaged = false;         // A window manager looks after it; popups and the like are not.
};

// Whether a window manager is at work.
bool hasManager(const X11Connection &connection);

// The applications' windows, back to front: those of the window manager, also minimised ones and those of other
// desktops, or without one whatever is mapped and is no popup.
QList<xcb_window_t> clients(const X11Connection &connection);

// The direct children of the root window, back to front.
QList<xcb_window_t> topLevels(const X11Connection &connection);

// For frames and clients alike; every window asked for has an entry.
QHash<xcb_window_t, Client> clientsInside(const X11Connection &connection, const QList<xcb_window_t> &topLevels);

} // namespace WindowTree

} // namespace ardeno
