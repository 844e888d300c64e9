// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Region.h"

#include <QHash>
#include <QList>
#include <QRect>
#include <QSet>

#include <chrono>

namespace ardeno {

// Which parts of the windows' own pixmaps may still show other windows, and which.
//
// A new pixmap begins with what was on the screen at its place: pixels of the windows above it, or of those below one
// without a background. Only drawing there takes them away. Windows are told by the server's numbers, all rectangles
// are outer ones in root coordinates unless said otherwise.
class InheritedPixels final {
public:
    using Window = quint32;
    using Clock = std::chrono::steady_clock;

    void add(Window id, const QRect &outer, bool isMapped);
    // Has gone for good; its number may be given to another window.
    void remove(Window id);

    // Where the window is, it may show what another one shows or has shown there: it gets a pixmap while that one lies
    // above it, or it has been mapped over that one before anybody watched.
    void meet(Window id, Window other);
    // The window gets a pixmap by becoming visible.
    void map(Window id);
    void unmap(Window id);
    // Has been moved or resized; a new size is a new pixmap.
    void place(Window id, const QRect &outer);
    // The owner has drawn this rectangle, relative to the outer top left corner.
    void draw(Window id, const QRect &area);

    // Where it is on the screen; empty while it is not mapped.
    QRect placeOf(Window id) const;

    bool isClean(Window id) const { return inheritedBy(id).isEmpty(); }

    // Relative to the outer top left corner: what may show any other window, or any other than these.
    X11Region inheritedBy(Window id) const;
    X11Region untrusted(Window id, const QSet<Window> &allowed) const;

private:
    static constexpr Window unknown = 0; // A window that has gone.

    struct Part {
        Window source = unknown;
        X11Region region = {};
    };

    struct State {
        QRect outer = {};
        bool isMapped = false;
        QList<Part> parts = {};
    };

    // Where a window was a moment ago: the server may not have drawn over it yet.
    struct Trace {
        Window source = unknown;
        QRect outer = {};
        Clock::time_point left = {};
    };

    static void inherit(State &state, Window source, const X11Region &area);
    void inheritScreen(Window id, State &state);
    void leaveTrace(Window source, const QRect &outer);
    void forgetSource(Window id);

    QHash<Window, State> m_windows = {};
    QList<Trace> m_traces = {};
};

} // namespace ardeno
