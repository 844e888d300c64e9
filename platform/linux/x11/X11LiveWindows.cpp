// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11LiveWindows.h"

#include "platform/linux/x11/WindowOwners.h"
#include "platform/linux/x11/WindowTree.h"
#include "platform/linux/x11/X11Windows.h"

#include <utility>

namespace ardeno {

namespace {

std::optional<QList<LiveWindow>> liveWindows(const X11Connection &connection, DesktopEntries &entries)
{
    if (!connection.availability().isAvailable())
        return std::nullopt;
    const QList<xcb_window_t> clients = WindowTree::clients(connection);
    const QHash<xcb_window_t, WindowOwner> owners = WindowOwners(connection, entries).owners(clients);
    QList<LiveWindow> windows;
    for (const X11WindowFacts &facts : readWindowFacts(connection, clients)) {
        if (!facts.frame)
            continue;
        const WindowOwner owner = owners.value(facts.window);
        windows.append(LiveWindow{
            .processID = owner.processID,
            .applicationID = owner.applicationID.value_or(QString()),
            .title = facts.title,
            .frame = *facts.frame,
            .windowID = facts.window,
        });
    }
    return windows;
}

} // namespace

LiveWindowList x11LiveWindows(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries)
{
    return [connection = std::move(connection), entries = std::move(entries)] {
        return liveWindows(*connection, *entries);
    };
}

} // namespace ardeno
