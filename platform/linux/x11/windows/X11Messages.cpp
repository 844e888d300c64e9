// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Messages.h"

#include "platform/linux/x11/windows/X11Property.h"

#include <algorithm>

namespace ardeno {

namespace {

constexpr quint32 sourcePager = 2;

} // namespace

void X11Messages::toManager(const X11Connection &connection, xcb_window_t window, X11Atom type,
                            const std::array<quint32, 5> &data)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = connection.atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(connection.xcb(), 0, connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection.xcb());
}

xcb_window_t X11Messages::activeWindow(const X11Connection &connection)
{
    return X11Property(connection, connection.root(), X11Atom::NetActiveWindow).cardinal().value_or(XCB_NONE);
}

bool X11Messages::isUserSwitching(const X11Connection &connection)
{
    constexpr uint16_t switching =
        XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    const X11Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection.xcb(), xcb_query_pointer(connection.xcb(), connection.root()), nullptr));
    return pointer && (pointer->mask & switching) != 0;
}

void X11Messages::activate(const X11Connection &connection, xcb_window_t window)
{
    toManager(connection, window, X11Atom::NetActiveWindow, {sourcePager, XCB_CURRENT_TIME, XCB_NONE, 0, 0});
}

} // namespace ardeno
