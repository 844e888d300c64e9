// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowServer.h"

#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Displays.h"
#include "platform/linux/x11/windows/X11Property.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <algorithm>
#include <utility>

namespace ardeno {

X11WindowServer::X11WindowServer(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries)
    : m_connection(std::move(connection)), m_entries(std::move(entries))
{
}

Capability X11WindowServer::availability() const
{
    return m_connection->availability();
}

QList<Display> X11WindowServer::displays()
{
    return readDisplays(*m_connection);
}

QList<QString> X11WindowServer::virtualDesktops()
{
    X11Property number(*m_connection, m_connection->root(), X11Atom::NetNumberOfDesktops);
    X11Property names(*m_connection, m_connection->root(), X11Atom::NetDesktopNames);
    QList<QString> desktops = names.texts();
    constexpr quint32 most = 256;
    desktops.resize(qsizetype(std::min(number.cardinal().value_or(1), most)));
    return desktops;
}

QList<WindowInfo> X11WindowServer::allWindows()
{
    QList<xcb_window_t> frontToBack = WindowTree::clients(*m_connection);
    std::reverse(frontToBack.begin(), frontToBack.end());
    const QList<X11WindowFacts> facts = readWindowFacts(*m_connection, frontToBack);
    const QHash<xcb_window_t, WindowOwner> owners = WindowOwners(*m_connection, *m_entries).owners(frontToBack);
    QList<WindowInfo> windows;
    for (const X11WindowFacts &window : facts) {
        const WindowOwner owner = owners.value(window.window);
        windows.append(WindowInfo{
            .windowID = window.window,
            .processID = owner.processID,
            .applicationID = owner.applicationID,
            .applicationName = owner.applicationName,
            .title = window.title,
            .frame = window.frame,
            .isNormalLayer = window.isOrdinary && !window.isDialog,
            .isOnScreen = window.isOnScreen,
            .desktop = window.desktop,
            .states = window.states,
        });
    }
    return windows;
}

} // namespace ardeno
