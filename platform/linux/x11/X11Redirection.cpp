// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11Redirection.h"

#include "desktop/Capability.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <poll.h>

#include <xcb/composite.h>

namespace ardeno {

namespace {

// How long an application may take to draw what has been uncovered.
constexpr auto drawingTime = std::chrono::milliseconds(150);

// How long the place that a window has left may still show it.
constexpr auto traceTime = std::chrono::seconds(1);

constexpr quint8 withoutSendFlag = 0x7f;

} // namespace

X11Redirection::X11Redirection(const QByteArray &displayName)
    : m_connection(displayName), m_extensions(X11Extensions::of(m_connection))
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
        Window known;
        known.outer = window.outer;
        known.border = window.border;
        known.isMapped = window.isViewable;
        m_windows.insert(window.id, known);
    }
    inheritCovered(viewableOf(windows));
    roundTrip();
    processEvents();
    xcb_composite_redirect_subwindows(xcb, m_connection.root(), XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    roundTrip();
    // During the grab nobody draws but the server: backgrounds, not yet what the owner wants to show there.
    m_onlyServerDraws = true;
    processEvents();
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
        Window &window = m_windows[id];
        for (qsizetype above = below + 1; above < windows.size(); ++above)
            addInherited(window, windows[above].id, windows[above].outer);
        for (const Inherited &inherited : std::as_const(window.inherited))
            window.awaited.add(inherited.region);
        watchDrawing(id, window);
    }
}

// A pixmap made now begins with what is on the screen, whoever drew it.
void X11Redirection::inheritFromScreen(xcb_window_t id, Window &window)
{
    const QRect whole(QPoint(0, 0), window.outer.size());
    QList<Inherited> before = std::exchange(window.inherited, {});
    for (Inherited &inherited : before) {
        inherited.region = whole;
        window.inherited.append(inherited);
    }
    for (const Trace &trace : std::as_const(m_traces))
        addInherited(window, trace.source, trace.outer);
    for (auto other = m_windows.cbegin(); other != m_windows.cend(); ++other) {
        if (other.key() == id || !other->isMapped)
            continue;
        addInherited(window, other.key(), other->outer);
        const QPoint offset = other->outer.topLeft() - window.outer.topLeft();
        for (const Inherited &passedOn : other->inherited) {
            const X11Region region = passedOn.region.translated(offset).intersected(whole);
            if (!region.isEmpty())
                window.inherited.append({passedOn.source, region});
        }
    }
    watchDrawing(id, window);
}

void X11Redirection::addInherited(Window &window, xcb_window_t source, const QRect &area) const
{
    const QRect common = area.intersected(window.outer);
    if (!common.isEmpty())
        window.inherited.append({source, common.translated(-window.outer.topLeft())});
}

void X11Redirection::watchDrawing(xcb_window_t id, Window &window)
{
    if (window.inherited.isEmpty())
        return;
    window.since = Clock::now();
    if (window.damage != XCB_NONE)
        return;
    xcb_connection_t *xcb = m_connection.xcb();
    window.damage = xcb_generate_id(xcb);
    window.creation = xcb_damage_create(xcb, window.damage, id, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES).sequence;
    // Events after this request do not bear the number of the one that made the object.
    xcb_no_operation(xcb);
    xcb_flush(xcb);
}

void X11Redirection::stopWatching(Window &window) const
{
    if (window.damage != XCB_NONE)
        xcb_damage_destroy(m_connection.xcb(), std::exchange(window.damage, XCB_NONE));
}

// A window's number may be given to another one; what was inherited from it stays suspect.
void X11Redirection::forget(xcb_window_t id)
{
    const auto gone = m_windows.find(id);
    if (gone != m_windows.end()) {
        leaveTrace(XCB_NONE, *gone);
        m_windows.erase(gone); // Its damage object has gone with it.
    }
    for (Trace &trace : m_traces) {
        if (trace.source == id)
            trace.source = XCB_NONE;
    }
    for (Window &window : m_windows) {
        for (Inherited &inherited : window.inherited) {
            if (inherited.source == id)
                inherited.source = XCB_NONE;
        }
    }
}

void X11Redirection::leaveTrace(xcb_window_t id, const Window &window)
{
    const Clock::time_point now = Clock::now();
    m_traces.removeIf([&](const Trace &trace) { return trace.left + traceTime < now; });
    if (window.isMapped)
        m_traces.append({id, window.outer, now});
}

void X11Redirection::processEvents()
{
    while (const auto event = X11Reply<xcb_generic_event_t>(xcb_poll_for_event(m_connection.xcb())))
        handle(*event);
    dropExpired();
    xcb_flush(m_connection.xcb());
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
    const quint8 type = event.response_type & withoutSendFlag;
    if (type == m_extensions.firstDamageEvent + XCB_DAMAGE_NOTIFY)
        return handleDrawing(reinterpret_cast<const xcb_damage_notify_event_t &>(event), event.full_sequence);
    switch (type) {
    case XCB_CREATE_NOTIFY:
        return handleCreate(reinterpret_cast<const xcb_create_notify_event_t &>(event));
    case XCB_MAP_NOTIFY:
        return handleMap(reinterpret_cast<const xcb_map_notify_event_t &>(event).window);
    case XCB_UNMAP_NOTIFY:
        return handleUnmap(reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window);
    case XCB_DESTROY_NOTIFY:
        return forget(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window);
    case XCB_CONFIGURE_NOTIFY:
        return handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t &>(event));
    case XCB_REPARENT_NOTIFY:
        return handleReparent(reinterpret_cast<const xcb_reparent_notify_event_t &>(event));
    default:
        return; // Errors of windows that have just gone.
    }
}

void X11Redirection::handleCreate(const xcb_create_notify_event_t &event)
{
    const xcb_setup_t &setup = *xcb_get_setup(m_connection.xcb());
    if ((event.window & ~setup.resource_id_mask) == setup.resource_id_base)
        return; // Made on this connection for a picture, and never seen.
    Window window;
    window.border = event.border_width;
    window.outer = QRect(event.x, event.y, event.width + 2 * window.border, event.height + 2 * window.border);
    m_windows.insert(event.window, window);
}

void X11Redirection::handleMap(xcb_window_t id)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end() || window->isMapped)
        return;
    window->isMapped = true;
    inheritFromScreen(id, *window);
}

void X11Redirection::handleUnmap(xcb_window_t id)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end())
        return;
    leaveTrace(id, *window);
    stopWatching(*window);
    window->isMapped = false;
    window->inherited.clear();
    window->awaited = {};
}

void X11Redirection::handleConfigure(const xcb_configure_notify_event_t &event)
{
    const auto window = m_windows.find(event.window);
    if (window == m_windows.end())
        return;
    const QSize before = window->outer.size();
    leaveTrace(event.window, *window);
    window->border = event.border_width;
    window->outer = QRect(event.x, event.y, event.width + 2 * window->border, event.height + 2 * window->border);
    // A new size is a new pixmap.
    if (window->isMapped && before != window->outer.size())
        inheritFromScreen(event.window, *window);
}

void X11Redirection::handleReparent(const xcb_reparent_notify_event_t &event)
{
    handleUnmap(event.window);
    if (event.parent != m_connection.root()) {
        m_windows.remove(event.window);
        return;
    }
    // The event names the place alone. A window that was mapped is mapped again afterwards.
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, event.window), nullptr));
    if (!geometry)
        return;
    Window window;
    window.border = geometry->border_width;
    window.outer = QRect(event.x, event.y, geometry->width + 2 * window.border, geometry->height + 2 * window.border);
    m_windows.insert(event.window, window);
}

void X11Redirection::handleDrawing(const xcb_damage_notify_event_t &event, quint32 sequence)
{
    const auto window = m_windows.find(event.drawable);
    // A new object first reports the whole window as drawn.
    if (window == m_windows.end() || window->damage != event.damage || sequence == window->creation)
        return;
    const QRect drawn(event.area.x + window->border, event.area.y + window->border, event.area.width,
                      event.area.height);
    for (Inherited &inherited : window->inherited)
        inherited.region.subtract(drawn);
    window->inherited.removeIf([](const Inherited &inherited) { return inherited.region.isEmpty(); });
    if (!m_onlyServerDraws)
        window->awaited.subtract(drawn);
    if (window->inherited.isEmpty() && window->awaited.isEmpty())
        stopWatching(*window);
}

void X11Redirection::dropExpired()
{
    const Clock::time_point now = Clock::now();
    for (Window &window : m_windows) {
        if (window.awaited.isEmpty() || window.since + drawingTime > now)
            continue;
        window.awaited = {};
        if (window.inherited.isEmpty())
            stopWatching(window);
    }
}

void X11Redirection::roundTrip() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    requireAlive(m_connection);
}

X11Region X11Redirection::untrusted(xcb_window_t window, const QSet<xcb_window_t> &allowed) const
{
    X11Region region;
    const auto found = m_windows.constFind(window);
    if (found == m_windows.cend())
        return region;
    for (const Inherited &inherited : found->inherited) {
        if (!allowed.contains(inherited.source))
            region.add(inherited.region);
    }
    return region;
}

X11Region X11Redirection::awaited(xcb_window_t window) const
{
    return m_windows.value(window).awaited;
}

X11Redirection::Clock::time_point X11Redirection::patience(xcb_window_t window) const
{
    return m_windows.value(window).since + drawingTime;
}

} // namespace ardeno
