// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WindowStates.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>
#include <QString>

#include <optional>

// How windows stand, in the words of their records and in those of window managers.
namespace ardeno::X11WindowStates {

constexpr quint32 allDesktops = 0xFFFFFFFF; // Instead of the number of one.

// The words for _NET_WM_STATE.
QList<QString> words(const X11Connection &connection, const QList<quint32> &state);

// Asks the window manager for the states of these words, as a pager does. What a window is to be last, minimised or on
// another desktop, is not among them.
void request(const X11Connection &connection, xcb_window_t window, const QList<QString> &words, bool isOn);
void requestMinimised(const X11Connection &connection, xcb_window_t window);
void requestDesktop(const X11Connection &connection, xcb_window_t window, quint32 desktop);

// Whether a request can be made for it.
bool isRequestable(const QString &word);

} // namespace ardeno::X11WindowStates
