// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/OwnWindows.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <memory>

namespace ardeno {

// Asks the window manager, as pagers do for their user: it does not hold that for an attempt to steal the focus.
class X11OwnWindows final : public OwnWindows {
public:
    explicit X11OwnWindows(std::shared_ptr<X11Connection> connection);

    void bringToFront(quint64 window) override;
    void floatAbove(quint64 window) override;
    void rememberFocus() override;
    void returnFocus(quint64 window) override;

private:
    std::shared_ptr<X11Connection> m_connection;
    xcb_window_t m_before = XCB_NONE;
};

} // namespace ardeno
