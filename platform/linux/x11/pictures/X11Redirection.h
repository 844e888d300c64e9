// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/InheritedPixels.h"
#include "platform/linux/x11/pictures/ServerGrab.h"
#include "platform/linux/x11/pictures/X11DrawingWatch.h"
#include "platform/linux/x11/pictures/X11Extensions.h"
#include "platform/linux/x11/pictures/X11Region.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <chrono>

namespace ardeno {

// Gives every top-level window a pixmap of its own, so that pictures can leave windows out, and follows from the order
// of the server's events what these pixmaps have inherited from the screen. What is known of an area of a pixmap:
//
//   the window gets a pixmap over others          the window lay over others when the redirection began
//   (it is mapped or resized)                     (it may have been drawn since, or never)
//               |                                              |
//               v                                              v
//          INHERITED  <-------------- askToDraw() ------- UNWATCHED
//               |                                              |
//               +---------------- the owner draws -------------+
//                                      |
//                                      v
//                                     OWN
//
// An OWN area is shown. The others belong to the windows they may come from: they are shown only while all of these
// are, and are grey otherwise (untrusted()). What was uncovered when the redirection began is AWAITED besides: pictures
// wait for its owner for a moment (patience()) before they take it as it is. Drawing by the server alone (backgrounds)
// counts for areas that are inherited, not for those that are awaited.
//
// X11RedirectionHold follows the events for as long as it lives. X11RedirectionKeeper lets a process have one at most:
// none -> kept (prepareExclusion) or used (a picture, a recording) -> none when nobody needs it.
class X11Redirection final {
public:
    using Clock = InheritedPixels::Clock;

    // Begins at once, on a connection that nobody else uses; ends with the object. Throws notAvailable() and Failure.
    explicit X11Redirection(X11Connection connection);

    const X11Connection &connection() const { return m_connection; }

    const X11Extensions &extensions() const { return m_extensions; }

    // Takes in what the server has reported so far, without waiting.
    void processEvents();
    // Takes in everything up to now. Only while the server is grabbed; else it might never end.
    void processAllEvents();
    // Waits until the server reports something. False when the time came first or the connection is lost.
    bool waitForEvents(Clock::time_point until);

    // How many windows are gone by now, as far as has been reported.
    quint64 departures() const { return m_departures; }

    // Whether every window shows only itself and these, and nothing is awaited; as far as has been reported.
    bool showsOnly(const QSet<xcb_window_t> &allowed) const;

    // Asks those among these windows to draw which were there before the redirection and may show others than these.
    // Nobody knows what they had drawn. Each is asked once; not while the server is grabbed.
    void askToDraw(const QSet<xcb_window_t> &allowed);

    // What of the window may show pixels of others than these; relative to its outer top left corner.
    X11Region untrusted(xcb_window_t window, const QSet<xcb_window_t> &allowed) const
    {
        return m_pixels.untrusted(window, allowed);
    }

    // What was uncovered by the redirection and not drawn by the window's owner since.
    X11Region awaited(xcb_window_t window) const { return m_awaited.value(window).region; }

    // Changes with every window that comes, goes or passes into other hands, as far as has been reported.
    quint32 revision() const { return m_revision; }

    // Whether the window, or another one of its number, has come after that revision.
    bool hasComeSince(xcb_window_t window, quint32 revision) const
    {
        return m_arrivals.contains(window) && m_arrivals.value(window) > revision;
    }

    // Until when it is worth waiting for the window's owner.
    Clock::time_point patience(xcb_window_t window) const;

private:
    struct Awaited {
        X11Region region = {};
        X11Region uncovered = {}; // What the server will report as drawn because it was uncovered, which it was not.
        Clock::time_point since = {}; // When the window last got pixels that are not its own, or was asked to draw.
        bool isUnwatched = false;     // It was there before the redirection, and has not been asked to draw since.
    };

    void begin();
    QSet<xcb_window_t> alreadyRedirected(const QList<TopLevel> &windows) const;
    void inheritCovered(const QList<TopLevel> &windows);
    void inheritCovering(const QList<TopLevel> &windows);
    void watchUnlessClean(xcb_window_t id);
    void forget(xcb_window_t id);
    void expectExposure(xcb_window_t above, const QRect &before);

    void handle(const xcb_generic_event_t &event);
    bool isOwn(xcb_window_t id) const;
    void handleBelowRoot(const xcb_generic_event_t &event);
    void handleChange(const xcb_generic_event_t &event, xcb_window_t id);
    void handleCreate(const xcb_create_notify_event_t &event);
    void handleConfigure(const xcb_configure_notify_event_t &event);
    void handleReparent(const xcb_reparent_notify_event_t &event);
    void handleDrawing(const xcb_damage_notify_event_t &event, quint32 sequence);
    void dropExpired();
    void roundTrip() const;

    X11Connection m_connection;
    X11Extensions m_extensions;
    X11DrawingWatch m_watch;
    InheritedPixels m_pixels = {};
    QHash<xcb_window_t, int> m_borders = {};
    QHash<xcb_window_t, Awaited> m_awaited = {};
    QHash<xcb_window_t, quint32> m_arrivals = {}; // The revisions of those that have come since the beginning.
    quint64 m_departures = 0;
    bool m_onlyServerDraws = false;
    quint32 m_revision = 0;
};

} // namespace ardeno
