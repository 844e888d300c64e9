// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Redirection.h"

#include "desktop/Capability.h"
#include "platform/linux/x11/pictures/X11Exposure.h"

#include <utility>
#include <vector>

#include <poll.h>

#include <xcb/composite.h>

namespace ardeno {

namespace {

// How long an application may take to draw what has been uncovered.
constexpr auto drawingTime = std::chrono::milliseconds(150);

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
    // Of a window that is redirected the server reports all as drawn.
    inheritCovering(viewableOf(windows));
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
            m_pixels.meet(id, windows[above].id);
        if (!m_pixels.isClean(id))
            m_awaited[id].region = m_pixels.inheritedBy(id);
        watchUnlessClean(id);
    }
}

// Whether a window has drawn itself since it was mapped over others, nobody has seen.
void X11Redirection::inheritCovering(const QList<TopLevel> &windows)
{
    for (qsizetype above = 0; above < windows.size(); ++above) {
        const xcb_window_t id = windows[above].id;
        for (qsizetype below = 0; below < above; ++below)
            m_pixels.meet(id, windows[below].id);
        if (m_pixels.isClean(id))
            continue;
        watchUnlessClean(id);
        m_awaited[id].isUnwatched = true;
    }
}

void X11Redirection::askToDraw(const QSet<xcb_window_t> &allowed)
{
    QHash<xcb_window_t, X11Region> asked;
    for (auto window = m_awaited.begin(); window != m_awaited.end(); ++window) {
        const X11Region doubtful = untrusted(window.key(), allowed);
        if (!window->isUnwatched || doubtful.isEmpty() || !allowed.contains(window.key()))
            continue;
        window->isUnwatched = false;
        asked.insert(window.key(), doubtful);
    }
    if (asked.isEmpty())
        return;
    const ServerGrab grab(m_connection);
    processAllEvents();
    for (auto window = asked.cbegin(); window != asked.cend(); ++window) {
        if (m_pixels.placeOf(window.key()).isEmpty())
            continue;
        m_awaited[window.key()].region.add(*window);
        m_awaited[window.key()].since = Clock::now();
        exposeTree(m_connection, window.key(), m_borders.value(window.key()), *window);
    }
    m_onlyServerDraws = true; // Backgrounds, as above.
    processAllEvents();
    m_onlyServerDraws = false;
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

bool X11Redirection::showsOnly(const QSet<xcb_window_t> &allowed) const
{
    // Whatever has inherited something has an entry.
    for (auto awaited = m_awaited.cbegin(); awaited != m_awaited.cend(); ++awaited) {
        if (!awaited->region.isEmpty() || !untrusted(awaited.key(), allowed).isEmpty())
            return false;
    }
    return true;
}

X11Redirection::Clock::time_point X11Redirection::patience(xcb_window_t window) const
{
    return m_awaited.value(window).since + drawingTime;
}

} // namespace ardeno
