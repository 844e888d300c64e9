// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <array>

// Requests to the window manager, as pagers make them.
namespace ardeno::X11Messages {

// Sends the message about a window to the root window, where the window manager listens.
void toManager(const X11Connection &connection, xcb_window_t window, X11Atom type, const std::array<quint32, 5> &data);

// The window with the user's focus; none when there is none.
xcb_window_t activeWindow(const X11Connection &connection);

// Whether the user holds down what takes people from one window to another: a mouse button, Alt or the Super key.
bool isUserSwitching(const X11Connection &connection);

// Brings the window to the front with the focus, as a pager does for its user.
void activate(const X11Connection &connection, xcb_window_t window);

} // namespace ardeno::X11Messages
