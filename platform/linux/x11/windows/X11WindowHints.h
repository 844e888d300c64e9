// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/ApplicationIdentity.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QList>

#include <optional>

namespace ardeno {

// What a top-level window and the server say of whose it is.
struct X11WindowHints {
    xcb_window_t client = XCB_NONE; // The window inside a frame, or the window itself.
    bool isManaged = false;         // A window manager looks after it.
    // Of a window that comes from another machine no process here is its own.
    bool isRemote = false;
    // The process at the other end of its connection: its own, or the one that brings it here from another machine.
    std::optional<qint32> peer = {};
    xcb_window_t leader = XCB_NONE; // The window that it belongs to as a dialog.
    WindowHints application = {};
};

// By the windows that were asked for. The requests of all share a handful of round trips.
QHash<xcb_window_t, X11WindowHints> readWindowHints(const X11Connection &connection,
                                                    const QList<xcb_window_t> &windows);

} // namespace ardeno
