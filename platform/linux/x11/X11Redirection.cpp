// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11Redirection.h"

#include "desktop/Capability.h"
#include "platform/linux/x11/X11Event.h"

#include <utility>
#include <vector>

#include <poll.h>

#include <xcb/composite.h>

namespace ardeno {

namespace {

// How long an application may take to draw what has been uncovered.
constexpr auto drawingTime = std::chrono::milliseconds(150);

QRect outerRectangle(int x, int y, int width, int height, int border)
{
    return {x, y, width + 2 * border, height + 2 * border};
}

} // namespace

X11Redirection::X11Redirection(X11Connection connection)
    : m_connection(std::move(connection)), m_extensions(X11Extensions::of(m_connection)), m_watch(m_connection)
{
    const QString missing = m_extensions.missingForExclusion();
    if (!missing.isEmpty())
        throw notAvailable(u"Windows cannot be left out: the X server lacks %1."_qs.arg(missing));
    begin();
}

void X11Redirection::begin()
{
    xcb_connection_t *xcb = m_connection.xcb();
    const quint32 changes = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(xcb, m_connection.root(), XCB_CW_EVENT_MASK, &changes);
    const ServerGrab grab(m_connection);
    const QList<TopLevel> windows = topLevels(m_connection);
    for (const TopLevel &window : windows) {
        m_borders.insert(window.id, window.border);
        m_pixels.add(window.id, window.outer, window.isViewable);
    }
    inheritCovered(viewableOf(windows));
    processAllEvents();
    xcb_composite_redirect_subwindows(xcb, m_connection.root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    // During the grab nobody draws but the server: backgrounds, not yet what the owner wants to show there.
    m_onlyServerDraws = true;
    processAllEvents();
    m_onlyServerDraws = false;
}

// Windows that somebody else has redirected already (a compositing manager) keep their pixmaps.
QSet<xcb_window_t> X11Redirection::alreadyRedirected(const QList<TopLevel> &windows) const
{
    xcb_connection_t *xcb = m_connection.xcb();
    std::vector<std::pair<xcb_pixmap_t, xcb_void_cookie_t>> asked;
    for (const TopLevel &window : windows) {
        const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
        asked.emplace_back(pixmap, xcb_composite_name_window_pixmap_checked(xcb, window.id, pixmap));
    }
    QSet<xcb_window_t> found;
    for (size_t i = 0; i < asked.size(); ++i) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(xcb, asked[i].second));
        if (error)
            continue;
        found.insert(windows[qsizetype(i)].id);
        xcb_free_pixmap(xcb, asked[i].first);
    }
    return found;
}

void X11Redirection::inheritCovered(const QList<TopLevel> &windows)
{
    const QSet<xcb_window_t> redirected = alreadyRedirected(windows);
    for (qsizetype below = 0; below < windows.size(); ++below) {
        const xcb_window_t id = windows[below].id;
        if (redirected.contains(id))
            continue;
        for (qsizetype above = below + 1; above < windows.size(); ++above)
            m_pixels.cover(id, windows[above].id);
        if (!m_pixels.isClean(id))
            m_awaited[id].region = m_pixels.inheritedBy(id);
        watchUnlessClean(id);
    }
}

void X11Redirection::watchUnlessClean(xcb_window_t id)
{
    if (m_pixels.isClean(id))
        return;
    m_awaited[id].since = Clock::now();
    m_watch.start(id);
}

void X11Redirection::forget(xcb_window_t id)
{
    m_pixels.remove(id);
    m_watch.forget(id);
    m_borders.remove(id);
    m_awaited.remove(id);
    m_arrivals.remove(id);
}

void X11Redirection::processEvents()
{
    // What comes while these are handled is left for the next time: it might never end.
    xcb_connection_t *xcb = m_connection.xcb();
    for (X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(xcb)); event;
         event.reset(xcb_poll_for_queued_event(xcb)))
        handle(*event);
    m_watch.readAnswers();
    dropExpired();
    xcb_flush(xcb);
}

void X11Redirection::processAllEvents()
{
    do {
        roundTrip();
        processEvents();
    } while (m_watch.hasQuestions());
}

bool X11Redirection::waitForEvents(Clock::time_point until)
{
    xcb_connection_t *xcb = m_connection.xcb();
    if (const auto event = X11Reply<xcb_generic_event_t>(xcb_poll_for_event(xcb))) {
        handle(*event);
        return true;
    }
    xcb_flush(xcb);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    pollfd server = {xcb_get_file_descriptor(xcb), POLLIN, 0};
    return left > 0 && m_connection.isAlive() && poll(&server, 1, int(left)) > 0 && m_connection.isAlive();
}

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

void X11Redirection::dropExpired()
{
    const Clock::time_point now = Clock::now();
    for (auto awaited = m_awaited.begin(); awaited != m_awaited.end(); ++awaited) {
        if (awaited->region.isEmpty() || awaited->since + drawingTime > now)
            continue;
        awaited->region = {};
        if (m_pixels.isClean(awaited.key()))
            m_watch.stop(awaited.key());
    }
}

void X11Redirection::roundTrip() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    requireAlive(m_connection);
}

bool X11Redirection::isClean() const
{
    // Whatever has inherited something has an entry.
    for (auto awaited = m_awaited.cbegin(); awaited != m_awaited.cend(); ++awaited) {
        if (!awaited->region.isEmpty() || !m_pixels.isClean(awaited.key()))
            return false;
    }
    return true;
}

X11Redirection::Clock::time_point X11Redirection::patience(xcb_window_t window) const
{
    return m_awaited.value(window).since + drawingTime;
}

} // namespace ardeno
