// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11OwnWindows.h"

#include "platform/linux/x11/windows/X11Messages.h"

#include <utility>

namespace ardeno {

namespace {

constexpr quint32 everyDesktop = 0xFFFFFFFF;
constexpr quint32 addState = 1;
constexpr quint32 asPager = 2;

} // namespace

X11OwnWindows::X11OwnWindows(std::shared_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}

void X11OwnWindows::bringToFront(quint64 window)
{
    X11Messages::activate(*m_connection, static_cast<xcb_window_t>(window));
}

void X11OwnWindows::floatAbove(quint64 window)
{
    const auto id = static_cast<xcb_window_t>(window);
    X11Messages::toManager(*m_connection, id, X11Atom::NetWmDesktop, {everyDesktop, asPager, 0, 0, 0});
    X11Messages::toManager(*m_connection, id, X11Atom::NetWmState,
                           {addState, m_connection->atom(X11Atom::NetWmStateAbove),
                            m_connection->atom(X11Atom::NetWmStateSticky), asPager, 0});
    X11Messages::activate(*m_connection, id);
}

void X11OwnWindows::rememberFocus()
{
    m_before = X11Messages::activeWindow(*m_connection);
}

void X11OwnWindows::returnFocus(quint64 window)
{
    if (m_before != XCB_NONE && X11Messages::activeWindow(*m_connection) == window)
        X11Messages::activate(*m_connection, m_before);
    m_before = XCB_NONE;
}

} // namespace ardeno
