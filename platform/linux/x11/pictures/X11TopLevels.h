// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Region.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>
#include <QRect>

namespace ardeno {

// A child of the root window.
struct TopLevel {
    xcb_window_t id = XCB_NONE;
    QRect outer = {}; // With its border, in the root's coordinates.
    int border = 0;
    quint8 depth = 0;
    xcb_visualid_t visual = 0;
    bool isOverrideRedirect = false; // No window manager's business: a menu, a tool tip, a frame.
    bool isViewable = false;         // Mapped, and something can be seen in it.
};

// All of them from the bottom to the top. A window that goes meanwhile is not in the list. Throws Failure when the
// connection is lost.
QList<TopLevel> topLevels(const X11Connection &connection);

inline QList<TopLevel> viewableOf(QList<TopLevel> windows)
{
    windows.removeIf([](const TopLevel &window) { return !window.isViewable; });
    return windows;
}

// The windows' outlines, relative to their outer top left corners, in the windows' order.
QList<X11Region> outlines(const X11Connection &connection, const QList<TopLevel> &windows);

// Throws Failure when the server has gone.
void requireAlive(const X11Connection &connection);

} // namespace ardeno
