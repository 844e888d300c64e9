// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11ScreenChanges.h"

#include "platform/linux/x11/windows/X11Event.h"

#include <xcb/randr.h>
#include <xcb/xfixes.h>

namespace ardeno {

namespace {

constexpr int cursorReach = 64; // Points around the pointer where its picture may be.

quint8 firstEventOf(xcb_connection_t *xcb, xcb_extension_t &extension)
{
    const auto *data = xcb_get_extension_data(xcb, &extension);
    return data && data->present ? data->first_event : quint8(0);
}

} // namespace

X11ScreenChanges::X11ScreenChanges(const X11Connection &connection, const X11Extensions &extensions)
    : m_connection(connection), m_extensions(extensions)
{
    xcb_connection_t *xcb = connection.xcb();
    const quint32 mask =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(xcb, connection.root(), XCB_CW_EVENT_MASK, &mask);
    if (connection.hasMonitors()) {
        m_firstScreenEvent = firstEventOf(xcb, xcb_randr_id);
        xcb_randr_select_input(xcb, connection.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    }
    if (extensions.hasFixes) {
        m_firstFixesEvent = firstEventOf(xcb, xcb_xfixes_id);
        xcb_xfixes_select_cursor_input(xcb, connection.root(), XCB_XFIXES_CURSOR_NOTIFY_MASK_DISPLAY_CURSOR);
    }
    if (extensions.hasDamage) {
        m_damage = xcb_generate_id(xcb);
        xcb_damage_create(xcb, m_damage, connection.root(), XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    }
    xcb_flush(xcb);
}

void X11ScreenChanges::readEvents()
{
    while (const auto event = X11Reply<xcb_generic_event_t>(xcb_poll_for_event(m_connection.xcb())))
        handle(*event);
}

void X11ScreenChanges::handle(const xcb_generic_event_t &event)
{
    const quint8 type = eventType(event);
    if (type == 0)
        return; // An error; whoever asked has noticed.
    if (m_damage != XCB_NONE && type == m_extensions.firstDamageEvent + XCB_DAMAGE_NOTIFY)
        m_hasDrawing = true;
    else if (m_firstFixesEvent != 0 && type == m_firstFixesEvent + XCB_XFIXES_CURSOR_NOTIFY)
        m_hasOtherPointer = true;
    else if (isOfDisplays(type))
        m_hasOtherDisplays = true;
    else if (type == XCB_PROPERTY_NOTIFY)
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t &>(event));
    else if (type == XCB_CONFIGURE_NOTIFY)
        m_hasOtherDisplays =
            m_hasOtherDisplays ||
            reinterpret_cast<const xcb_configure_notify_event_t &>(event).window == m_connection.root();
    else if (type >= XCB_CREATE_NOTIFY && type <= XCB_REPARENT_NOTIFY)
        m_hasOtherWindows = true;
}

bool X11ScreenChanges::isOfDisplays(quint8 type) const
{
    return m_firstScreenEvent != 0 && (type == m_firstScreenEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                       type == m_firstScreenEvent + XCB_RANDR_NOTIFY);
}

void X11ScreenChanges::handleProperty(const xcb_property_notify_event_t &event)
{
    if (event.atom == m_connection.atom(X11Atom::RootPixmap) ||
        event.atom == m_connection.atom(X11Atom::EsetrootPixmap))
        m_hasOtherWallpaper = true;
    else
        m_hasOtherWindows = true; // Another desktop, a minimised window.
}

void X11ScreenChanges::readPointer(const QRect &area)
{
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, m_connection.root()), nullptr));
    if (!reply)
        return;
    const QPoint now(reply->root_x, reply->root_y);
    const QRect reach = area.adjusted(-cursorReach, -cursorReach, cursorReach, cursorReach);
    if (now != m_pointer && (reach.contains(now) || reach.contains(m_pointer)))
        m_hasOtherPointer = true;
    m_pointer = now;
}

void X11ScreenChanges::beginFrame(const X11Connection &through)
{
    // Without the extension every moment may differ from the last.
    m_hasDrawing = m_damage == XCB_NONE;
    m_hasOtherPointer = false;
    if (m_damage != XCB_NONE)
        xcb_damage_subtract(through.xcb(), m_damage, XCB_NONE, XCB_NONE);
}

} // namespace ardeno
