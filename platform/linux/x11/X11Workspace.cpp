// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11Workspace.h"

#include "platform/linux/x11/WindowOwners.h"
#include "platform/linux/x11/WindowTree.h"
#include "platform/linux/x11/X11Windows.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <utility>

namespace ardeno {

X11Workspace::X11Workspace(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries)
    : m_connection(std::move(connection)), m_entries(std::move(entries))
{
}

Capability X11Workspace::availability() const
{
    return m_connection->availability();
}

QList<RunningApplication> X11Workspace::runningApplications()
{
    const QList<xcb_window_t> clients = WindowTree::clients(*m_connection);
    const QHash<xcb_window_t, WindowOwner> owners = WindowOwners(*m_connection, *m_entries).owners(clients);
    QList<RunningApplication> applications;
    QHash<QString, qsizetype> positions;
    for (const X11WindowFacts &window : readWindowFacts(*m_connection, clients)) {
        const WindowOwner owner = owners.value(window.window);
        if (!owner.applicationID || !window.frame) // Nobody knows it, or it has just gone.
            continue;
        if (!owner.isIdentified && owner.processID == qint32(QCoreApplication::applicationPid()))
            continue; // This program, where it is not installed.
        const auto known = positions.constFind(*owner.applicationID);
        if (known == positions.constEnd()) {
            positions.insert(*owner.applicationID, applications.size());
            applications.append({*owner.applicationID, owner.applicationName, window.isOrdinary});
        } else if (window.isOrdinary) {
            applications[*known].isRegular = true;
        }
    }
    return applications;
}

QList<InstalledApplication> X11Workspace::installedApplications()
{
    QList<InstalledApplication> applications;
    QSet<QString> seen; // A browser may be installed in two ways.
    for (const DesktopEntry &entry : m_entries->shown()) {
        if (!seen.contains(entry.id))
            applications.append({entry.id, entry.name, entry.iconName});
        seen.insert(entry.id);
    }
    return applications;
}

void X11Workspace::setChangeHandler(std::function<void()> handler)
{
    m_watch.reset();
    if (!handler)
        return;
    try {
        m_watch = std::make_unique<X11ClientWatch>(std::move(handler));
    } catch (const Failure &) {
        // A display that has gone changes no more.
    }
}

} // namespace ardeno
