// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Extensions.h"
#include "platform/linux/x11/X11Region.h"
#include "platform/linux/x11/X11TopLevels.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <chrono>

#include <xcb/damage.h>

namespace ardeno {

// Gives every top-level window a pixmap of its own, so that pictures can leave windows out.
//
// A window's new pixmap begins with what was on the screen at its place: pixels of the windows above it, or of those
// below one without a background. Until its owner has drawn there, such a part shows somebody else. This class knows
// these parts and whose pixels they may be, from the order of the server's own events.
class X11Redirection final {
public:
    using Clock = std::chrono::steady_clock;

    // Begins at once, on a connection of its own; ends with the object. Throws notAvailable() and Failure.
    explicit X11Redirection(const QByteArray &displayName);

    const X11Connection &connection() const { return m_connection; }

    const X11Extensions &extensions() const { return m_extensions; }

    // Takes in what the server has reported so far, without waiting.
    void processEvents();
    // Waits until the server reports something. False when the time came first or the connection is lost.
    bool waitForEvents(Clock::time_point until);

    // What of the window may show pixels of others than these; relative to its outer top left corner.
    X11Region untrusted(xcb_window_t window, const QSet<xcb_window_t> &allowed) const;
    // What was uncovered by the redirection and not drawn by the window's owner since.
    X11Region awaited(xcb_window_t window) const;
    // Until when it is worth waiting for the window's owner.
    Clock::time_point patience(xcb_window_t window) const;

private:
    struct Inherited {
        xcb_window_t source = XCB_NONE; // None: of a window that has gone.
        X11Region region = {};
    };

    // Where a window was a moment ago: the server may not have drawn over it yet.
    struct Trace {
        xcb_window_t source = XCB_NONE;
        QRect outer = {};
        Clock::time_point left = {};
    };

    struct Window {
        QRect outer = {};
        int border = 0;
        bool isMapped = false;
        QList<Inherited> inherited = {};
        X11Region awaited = {};
        Clock::time_point since = {};
        xcb_damage_damage_t damage = XCB_NONE;
        quint32 creation = 0; // Sequence number of the request that made the damage object.
    };

    void begin();
    QSet<xcb_window_t> alreadyRedirected(const QList<TopLevel> &windows) const;
    void inheritCovered(const QList<TopLevel> &windows);
    void inheritFromScreen(xcb_window_t id, Window &window);
    void addInherited(Window &window, xcb_window_t source, const QRect &area) const;
    void watchDrawing(xcb_window_t id, Window &window);
    void stopWatching(Window &window) const;
    void forget(xcb_window_t id);
    void leaveTrace(xcb_window_t id, const Window &window);

    void handle(const xcb_generic_event_t &event);
    void handleCreate(const xcb_create_notify_event_t &event);
    void handleMap(xcb_window_t id);
    void handleUnmap(xcb_window_t id);
    void handleConfigure(const xcb_configure_notify_event_t &event);
    void handleReparent(const xcb_reparent_notify_event_t &event);
    void handleDrawing(const xcb_damage_notify_event_t &event, quint32 sequence);
    void dropExpired();
    void roundTrip() const;

    X11Connection m_connection;
    X11Extensions m_extensions;
    QHash<xcb_window_t, Window> m_windows = {};
    QList<Trace> m_traces = {};
    bool m_onlyServerDraws = false;
};

// Keeps other clients waiting, so that windows and pixels stay as they are. Keep it short.
class ServerGrab final {
public:
    explicit ServerGrab(const X11Connection &connection) : m_connection(connection)
    {
        xcb_grab_server(connection.xcb());
    }

    ServerGrab(const ServerGrab &) = delete;
    ServerGrab &operator=(const ServerGrab &) = delete;

    ~ServerGrab()
    {
        xcb_ungrab_server(m_connection.xcb());
        xcb_flush(m_connection.xcb());
    }

private:
    const X11Connection &m_connection;
};

} // namespace ardeno
