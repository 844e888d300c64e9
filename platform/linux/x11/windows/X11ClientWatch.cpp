// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11ClientWatch.h"

#include "platform/linux/x11/windows/X11Event.h"
#include "platform/linux/x11/windows/X11Property.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

// Until a window that has just come bears its name, and many that come together are all there.
constexpr std::chrono::milliseconds settling(200);

} // namespace

X11ClientWatch::X11ClientWatch(std::function<void()> handler)
    : m_socket(xcb_get_file_descriptor(m_connection.xcb()), QSocketNotifier::Read), m_handler(std::move(handler))
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(settling);
    QObject::connect(&m_delay, &QTimer::timeout, [this] { m_handler(); });
    QObject::connect(&m_socket, &QSocketNotifier::activated, [this] { readEvents(); });
    chooseEvents();
    readEvents(); // Those that the answers brought along.
}

// A window manager lists the applications' windows; without one every top-level window may be such a window.
void X11ClientWatch::chooseEvents()
{
    m_isListed = X11Property(m_connection, m_connection.root(), X11Atom::NetClientList).cardinalsIfSet().has_value();
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | (m_isListed ? 0 : XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    xcb_change_window_attributes(m_connection.xcb(), m_connection.root(), XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection.xcb());
}

X11ClientWatch::Change X11ClientWatch::changeOf(const xcb_generic_event_t &event) const
{
    const uint8_t type = eventType(event);
    if (type == XCB_MAP_NOTIFY || type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY)
        return Change::Windows;
    if (type != XCB_PROPERTY_NOTIFY)
        return Change::None;
    const xcb_atom_t name = reinterpret_cast<const xcb_property_notify_event_t &>(event).atom;
    if (name == m_connection.atom(X11Atom::NetSupportingWmCheck))
        return Change::Manager;
    if (name == m_connection.atom(X11Atom::NetClientList))
        return m_isListed ? Change::Windows : Change::Manager;
    return Change::None;
}

void X11ClientWatch::readEvents()
{
    Change most = Change::None;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.xcb())})
        most = std::max(most, changeOf(*event));
    // A connection that was lost stays readable for ever.
    if (!m_connection.isAlive())
        m_socket.setEnabled(false);
    if ((most != Change::None || !m_connection.isAlive()) && !m_delay.isActive())
        m_delay.start();
    if (most == Change::Manager) {
        chooseEvents();
        readEvents(); // Those that the answers brought along.
    }
}

} // namespace ardeno
