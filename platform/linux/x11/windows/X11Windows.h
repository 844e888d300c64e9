// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// What a window's properties say, without its owner.
struct X11WindowFacts {
    xcb_window_t window = XCB_NONE;
    QString title = {};
    std::optional<WindowRect> frame = {};  // Incl. decoration, without client-side shadows; absent when it has gone.
    std::optional<WindowRect> client = {}; // Without decoration, incl. such shadows; absent likewise.
    bool isAtFrame = true;                 // Neither maximised nor minimised nor full screen.
    bool isOnScreen = false;               // Not minimised, and on the current desktop.
    bool isOrdinary = false;               // By its type: no panel, dock, desktop, menu or tool.
    bool isDialog = false;                 // It belongs to another window.
    std::optional<quint32> desktop = {};   // The number of its virtual desktop; absent on all of them.
    std::optional<QList<QString>> states = {}; // Words of WindowStates; absent when nobody looks after the window.
    bool isShaded = false;                     // Only its title bar is there.

    bool operator==(const X11WindowFacts &) const = default;
};

// In the order of the windows, all asked for at once. A dialog that does not say what it belongs to is known as one
// only beside the other windows of its application.
QList<X11WindowFacts> readWindowFacts(const X11Connection &connection, const QList<xcb_window_t> &windows);

} // namespace ardeno
