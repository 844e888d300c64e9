// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QHash>
#include <QList>

#include <xcb/damage.h>

namespace ardeno {

// Tells what is drawn in chosen top-level windows, and by whom: the server also reports as drawn what it only moves
// when a window or one below it is moved or resized, and a whole window when one begins to watch it.
class X11DrawingWatch final {
public:
    explicit X11DrawingWatch(const X11Connection &connection) : m_connection(connection) {}

    void start(xcb_window_t topLevel);
    void stop(xcb_window_t topLevel);

    // The window has gone, and what watched it with it.
    void forget(xcb_window_t topLevel) { m_watched.remove(topLevel); }

    // What has been reported as drawn so far may have been moved. This is for the top-level window itself.
    void distrustUntilNow(xcb_window_t topLevel);
    // The same after something has happened to the windows below this one, which may be new.
    void distrustBelow(xcb_window_t parent, xcb_window_t child);

    // Whether the report is of something that was drawn by whoever draws in the window.
    bool isDrawing(const xcb_damage_notify_event_t &event, quint32 sequence) const;

private:
    struct Watched {
        xcb_damage_damage_t damage = XCB_NONE;
        quint32 trustedFrom = 0;       // Sequence number of the first request after which reports count.
        QList<xcb_window_t> tree = {}; // The windows below whose children are followed.
    };

    void followTree(Watched &watched, xcb_window_t from) const;
    quint32 mark() const;

    const X11Connection &m_connection;
    QHash<xcb_window_t, Watched> m_watched = {};
};

} // namespace ardeno
