// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Redirection.h"
#include "platform/linux/x11/windows/X11Event.h"

// What the server reports, and what it means for the windows' pixmaps.
namespace ardeno {

namespace {

QRect outerRectangle(int x, int y, int width, int height, int border)
{
    return {x, y, width + 2 * border, height + 2 * border};
}

} // namespace

void X11Redirection::handle(const xcb_generic_event_t &event)
{
    const quint8 type = eventType(event);
    if (type == m_extensions.firstDamageEvent + XCB_DAMAGE_NOTIFY)
        return handleDrawing(reinterpret_cast<const xcb_damage_notify_event_t &>(event), event.full_sequence);
    if (type < XCB_CREATE_NOTIFY || type > XCB_CIRCULATE_NOTIFY)
        return; // Errors of windows that have just gone.
    // All of these begin with the window whose children are followed and the child in question.
    const auto &any = reinterpret_cast<const xcb_map_notify_event_t &>(event);
    if (any.event != m_connection.root() && type == XCB_DESTROY_NOTIFY)
        return m_watch.forgetBelow(any.window);
    if (any.event != m_connection.root())
        return m_watch.distrustBelow(any.event, any.window);
    handleBelowRoot(event);
}

// Made on this connection for a picture, and never seen.
bool X11Redirection::isOwn(xcb_window_t id) const
{
    const xcb_setup_t &setup = *xcb_get_setup(m_connection.xcb());
    return (id & ~setup.resource_id_mask) == setup.resource_id_base;
}

void X11Redirection::handleBelowRoot(const xcb_generic_event_t &event)
{

    const xcb_window_t id = reinterpret_cast<const xcb_map_notify_event_t &>(event).window;
    const quint8 type = eventType(event);
    if (type != XCB_CONFIGURE_NOTIFY && type != XCB_GRAVITY_NOTIFY && type != XCB_CIRCULATE_NOTIFY && !isOwn(id))
        ++m_revision;
    const QRect before = m_pixels.placeOf(id);
    handleChange(event, id);
    expectExposure(id, before);
}

void X11Redirection::handleChange(const xcb_generic_event_t &event, xcb_window_t id)
{
    switch (eventType(event)) {
    case XCB_CREATE_NOTIFY:
        return handleCreate(reinterpret_cast<const xcb_create_notify_event_t &>(event));
    case XCB_MAP_NOTIFY:
        m_pixels.map(id);
        return watchUnlessClean(id);
    case XCB_UNMAP_NOTIFY:
        m_pixels.unmap(id);
        m_awaited.remove(id);
        return m_watch.stop(id);
    case XCB_DESTROY_NOTIFY:
        ++m_departures;
        return forget(id);
    case XCB_CONFIGURE_NOTIFY:
        return handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t &>(event));
    case XCB_REPARENT_NOTIFY:
        return handleReparent(reinterpret_cast<const xcb_reparent_notify_event_t &>(event));
    default:
        return;
    }
}

// When a window goes or moves, the server reports as drawn what comes to light below it, even where nobody draws. A
// first report there says nothing, therefore.
void X11Redirection::expectExposure(xcb_window_t above, const QRect &before)
{
    X11Region uncovered = before;
    uncovered.subtract(m_pixels.placeOf(above));
    if (uncovered.isEmpty())
        return;
    for (auto below = m_awaited.begin(); below != m_awaited.end(); ++below) {
        const QRect place = m_pixels.placeOf(below.key());
        if (below.key() != above && !m_pixels.isClean(below.key()))
            below->uncovered.add(uncovered.intersected(place).translated(-place.topLeft()));
    }
}

void X11Redirection::handleCreate(const xcb_create_notify_event_t &event)
{
    if (isOwn(event.window))
        return;
    m_arrivals.insert(event.window, m_revision);
    m_borders.insert(event.window, event.border_width);
    m_pixels.add(event.window, outerRectangle(event.x, event.y, event.width, event.height, event.border_width), false);
    m_watch.follow(event.window);
}

void X11Redirection::handleConfigure(const xcb_configure_notify_event_t &event)
{
    m_borders.insert(event.window, event.border_width);
    m_pixels.place(event.window, outerRectangle(event.x, event.y, event.width, event.height, event.border_width));
    m_watch.distrustUntilNow(event.window);
    watchUnlessClean(event.window);
}

void X11Redirection::handleReparent(const xcb_reparent_notify_event_t &event)
{
    forget(event.window);
    if (event.parent != m_connection.root())
        return;
    // The event names the place alone. A window that was mapped is mapped again afterwards.
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, event.window), nullptr));
    if (!geometry)
        return;
    const int border = geometry->border_width;
    m_arrivals.insert(event.window, m_revision);
    m_borders.insert(event.window, border);
    m_pixels.add(event.window, outerRectangle(event.x, event.y, geometry->width, geometry->height, border), false);
    m_watch.follow(event.window);
}

void X11Redirection::handleDrawing(const xcb_damage_notify_event_t &event, quint32 sequence)
{
    if (!m_watch.isDrawing(event, sequence))
        return;
    const xcb_window_t id = event.drawable;
    const int border = m_borders.value(id);
    X11Region drawn = QRect(event.area.x + border, event.area.y + border, event.area.width, event.area.height);
    Awaited &awaitedHere = m_awaited[id];
    const X11Region exposed = awaitedHere.uncovered.intersected(drawn);
    awaitedHere.uncovered.subtract(drawn);
    drawn.subtract(exposed);
    for (const QRect &rectangle : drawn.rectangles())
        m_pixels.draw(id, rectangle);
    if (!m_onlyServerDraws)
        awaitedHere.region.subtract(drawn);
    if (m_pixels.isClean(id) && awaited(id).isEmpty())
        m_watch.stop(id);
}

} // namespace ardeno
