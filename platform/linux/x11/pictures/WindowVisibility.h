// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Region.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "platform/linux/x11/windows/RunningProcesses.h"
#include "platform/linux/x11/windows/WindowOwners.h"

#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// Which top-level windows a picture shows.
struct WindowVisibility {
    QSet<xcb_window_t> allowed = {};
    QSet<xcb_window_t> leftOut = {}; // The program's own and those of excluded applications.
    QSet<xcb_window_t> hidden = {};  // Mapped, but not shown by the compositing manager (minimised, other desktops).

    bool isComposited = false; // A compositing manager runs, which gives alpha its meaning.

    bool knows(xcb_window_t window) const { return allowed.contains(window) || leftOut.contains(window); }

    // Whom nobody has judged, or whose number was another window's then, is not shown.
    void leaveOutStrangers(const QList<TopLevel> &windows, const std::function<bool(xcb_window_t)> &isNew);
};

// What is to be left out.
struct Exclusion {
    QString ownAppID = {}; // This program's.
    QSet<QString> appIDs = {};
    std::optional<RunningProcesses> onlyProcesses = {}; // With excluded applications: windows of others go, too.
};

// Judges these windows, mapped or not. The owners are asked for only when an application is excluded. Reads files, and
// so never while the server is grabbed: a disk that does not answer would stop the whole screen.
WindowVisibility chooseWindows(const X11Connection &connection, DesktopEntries &entries, const QList<TopLevel> &windows,
                               const Exclusion &exclusion);

// Whether the screen may show something of these windows that must be left out.
bool mayShowLeftOut(const WindowVisibility &visibility, const QList<TopLevel> &windows, const Exclusion &exclusion);

} // namespace ardeno
