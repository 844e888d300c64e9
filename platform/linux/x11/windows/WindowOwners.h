// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// Whose window it is.
struct WindowOwner {
    xcb_window_t client = XCB_NONE;       // The application's own window: the one inside a frame, or the window itself.
    std::optional<qint32> processID = {}; // Absent also for a window that comes from another machine.
    // The process at the other end of its connection: its own, or the one that brings it from another machine.
    std::optional<qint32> peer = {};
    // Absent when nothing is known of it. Whatever may be a window of an excluded application has that one's.
    std::optional<QString> applicationID = {};
    QString applicationName = {}; // Localised; empty when it has none.
    bool isIdentified = false;    // The window itself or its program is one of an application installed here.
    bool isExcluded = false;

    bool operator==(const WindowOwner &) const = default;
};

// Finds the applications of windows; the entries know which are excluded. The connection and the entries outlive it.
class WindowOwners final {
public:
    WindowOwners(const X11Connection &connection, DesktopEntries &entries)
        : m_connection(connection), m_entries(entries)
    {
    }

    // For frames, clients and popups alike. Every window asked for has an entry; one that has gone meanwhile has an
    // empty one. The requests of all windows share a handful of round trips.
    QHash<xcb_window_t, WindowOwner> owners(const QList<xcb_window_t> &topLevels);

private:
    const X11Connection &m_connection;
    DesktopEntries &m_entries;
};

} // namespace ardeno
