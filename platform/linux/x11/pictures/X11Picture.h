// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/pictures/WindowVisibility.h"
#include "platform/linux/x11/pictures/X11Canvas.h"
#include "platform/linux/x11/pictures/X11Cursor.h"
#include "platform/linux/x11/pictures/X11Redirection.h"

#include <functional>
#include <optional>

namespace ardeno {

// One still picture. Runs on any thread; what it is given is used by nobody else meanwhile.
class X11Picture final {
public:
    X11Picture(CanvasRequest request, Exclusion exclusion, DesktopEntries &entries);

    // The picture of the screen as it is; absent when it may show what must be left out, also when windows come and go
    // too fast to be sure. Throws Failure and std::bad_alloc, like all of these.
    std::optional<Canvas> ofScreen(const X11Connection &connection, const X11Extensions &extensions);
    // The same while windows are redirected; absent also when one of them still shows another.
    std::optional<Canvas> ofScreen(X11Redirection &redirection);
    // The picture put together from the windows.
    Canvas ofWindows(X11Redirection &redirection);

private:
    // What is read while the server is grabbed.
    struct Moment {
        QList<TopLevel> windows = {}; // The viewable ones, from the bottom to the top.
        X11Cursor cursor = {};
    };

    // How many windows are gone by now. The server soon gives their numbers to windows of others, so a visibility holds
    // only until the next one goes.
    using Departures = std::function<quint64()>;
    using IsClean = std::function<bool(const WindowVisibility &, const QList<TopLevel> &)>;

    Moment moment(const X11Connection &connection, const X11Extensions &extensions) const;
    void choose(const X11Connection &connection, const QList<TopLevel> &windows, quint64 departures);
    bool knowsAll(const QList<TopLevel> &windows, quint64 departures) const;
    std::optional<Canvas> screenIf(const IsClean &isClean, const Departures &departures,
                                   const X11Connection &connection, const X11Extensions &extensions);
    // Lets the server go as soon as everything is drawn.
    Canvas grabbedScreen(const X11Connection &connection, const X11Extensions &extensions, const Moment &now,
                         std::optional<ServerGrab> &grab) const;
    Canvas grabbedWindows(X11Redirection &redirection, const Moment &now, std::optional<ServerGrab> &grab) const;
    void drawDisplays(X11Canvas &canvas, const PaintDesktop &paint) const;
    // Checks the displays once more and adds the pointer.
    Canvas finished(const X11Connection &connection, const FetchedPixels &pixels, const X11Cursor &cursor) const;
    bool isScreenItself(const X11Connection &connection) const;
    void requireSameDisplays(const X11Connection &connection) const;
    X11Region displayAreas() const;

    CanvasRequest m_request;
    Exclusion m_exclusion;
    std::optional<WindowVisibility> m_visibility = {}; // Of the last attempt; new windows are not in it.
    quint64 m_departures = 0;                          // When the visibility was made.
    quint32 m_revision = 0; // Of the redirection, when a visibility was made while there was one.
    DesktopEntries &m_entries;
};

} // namespace ardeno
