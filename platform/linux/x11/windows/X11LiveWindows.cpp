// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11LiveWindows.h"

#include "platform/linux/browsers/BrowserIdentities.h"
#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Property.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <QRegularExpression>

#include <utility>
#include <vector>

namespace ardeno {

namespace {

// What a window says of itself beside what all windows say.
struct LiveHints {
    LiveHints(const X11Connection &connection, xcb_window_t window)
        : busName(connection, window, X11Atom::GtkUniqueBusName),
          objectPath(connection, window, X11Atom::GtkWindowObjectPath)
    {
    }

    X11Property busName;
    X11Property objectPath;
};

// Whether the title ends with a browser's name, as theirs do whatever their programs are called.
bool isTitledAsBrowser(const QString &title)
{
    static const QRegularExpression ending("^.* [-–—] (.+)$", QRegularExpression::UseUnicodePropertiesOption);
    const QString name = ending.match(title).captured(1);
    return name.startsWith("Mozilla Firefox") || (!name.isEmpty() && BrowserIdentities::named(name).has_value());
}

// By its process, under whatever name that was started, else by what it is called.
bool mayBeBrowser(const WindowOwner &owner, const QString &title, DesktopEntries &entries)
{
    if (isTitledAsBrowser(title))
        return true;
    if (owner.processID && BrowserProcesses::browserOf(*owner.processID))
        return true;
    const QString id = owner.applicationID.value_or(QString());
    const auto entry = entries.find(id);
    return entry ? entry->isBrowser : BrowserIdentities::named(id).has_value();
}

bool isMailProgram(const WindowOwner &owner, DesktopEntries &entries)
{
    const auto entry = entries.find(owner.applicationID.value_or(QString()));
    return entry && entry->isMailProgram;
}

std::optional<QList<LiveWindow>> liveWindows(const X11Connection &connection, DesktopEntries &entries)
{
    if (!connection.availability().isAvailable())
        return std::nullopt;
    const QList<xcb_window_t> clients = WindowTree::clients(connection);
    const QHash<xcb_window_t, WindowOwner> owners = WindowOwners(connection, entries).owners(clients);
    std::vector<LiveHints> hints;
    hints.reserve(clients.size());
    for (const xcb_window_t client : clients)
        hints.emplace_back(connection, client);
    QList<LiveWindow> windows;
    qsizetype index = 0;
    for (const X11WindowFacts &facts : readWindowFacts(connection, clients)) {
        LiveHints &own = hints[index++];
        if (!facts.frame)
            continue;
        const WindowOwner owner = owners.value(facts.window);
        windows.append(LiveWindow{
            .processID = owner.processID,
            .applicationID = owner.applicationID.value_or(QString()),
            .title = facts.title,
            .frame = *facts.frame,
            .client = *facts.client,
            .isAtFrame = facts.isAtFrame,
            .windowID = facts.window,
            .applicationName = owner.applicationName,
            .isDialog = facts.isDialog,
            .isBrowser = mayBeBrowser(owner, facts.title, entries),
            .isMailProgram = isMailProgram(owner, entries),
            .busName = own.busName.text().value_or(QString()),
            .objectPath = own.objectPath.text().value_or(QString()),
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
