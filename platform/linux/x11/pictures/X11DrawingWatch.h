// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>

#include <xcb/damage.h>

namespace ardeno {

// Tells what is drawn in chosen top-level windows: the server also reports as drawn what it only moves when a window or
// one below it is moved or resized, and a whole window when one begins to watch it. Never waits for the server.
class X11DrawingWatch final {
public:
    explicit X11DrawingWatch(const X11Connection &connection) : m_connection(connection) {}

    // Learns of the windows below, which takes a while, so that watching can begin at once later.
    void follow(xcb_window_t topLevel);
    void start(xcb_window_t topLevel);
    void stop(xcb_window_t topLevel);
    void forget(xcb_window_t topLevel);

    // What has been reported as drawn so far may have been moved. This is for the top-level window itself.
    void distrustUntilNow(xcb_window_t topLevel);
    // The same after something has happened to this window, somewhere below a top-level one.
    void distrustBelow(xcb_window_t parent, xcb_window_t child);

    // A window somewhere below a top-level one has gone.
    void forgetBelow(xcb_window_t child);

    // Takes in what the server has answered.
    void readAnswers();
    bool hasQuestions() const;

    // Whether the report is of something that was drawn in a window that is watched.
    bool isDrawing(const xcb_damage_notify_event_t &event, quint32 sequence) const;

private:
    struct Followed {
        QSet<xcb_window_t> tree = {}; // The top-level window and what is known below it.
        QList<quint32> questions = {};
        xcb_damage_damage_t damage = XCB_NONE;
        // Sequence number of the first request after which reports count; absent until the tree is known.
        std::optional<quint32> trustedFrom = {};
    };

    void ask(Followed &followed, xcb_window_t topLevel, xcb_window_t window);
    bool readAnswer(xcb_window_t topLevel, Followed &followed);
    void trustFromNow(Followed &followed) const;

    const X11Connection &m_connection;
    QHash<xcb_window_t, Followed> m_followed = {};
    QHash<xcb_window_t, xcb_window_t> m_topLevelOf = {};
};

} // namespace ardeno
