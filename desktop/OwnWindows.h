// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace ardeno {

// What this program asks of the desktop session for windows of its own, which are named by the system's number. Where
// it cannot be asked, nothing happens.
class OwnWindows {
public:
    virtual ~OwnWindows() = default;

    // To the front, with the keyboard.
    virtual void bringToFront(quint64 window) = 0;
    // Above all others, also those that fill the screen, on every desktop, with the keyboard. Once it is shown.
    virtual void floatAbove(quint64 window) = 0;
    // Remembers the window that has the keyboard.
    virtual void rememberFocus() = 0;
    // Gives the keyboard back if this window, which is about to go, still has it.
    virtual void returnFocus(quint64 window) = 0;
};

} // namespace ardeno
