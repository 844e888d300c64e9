// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/WindowVisibility.h"

#include "platform/linux/running/ProcessFacts.h"
#include "platform/linux/x11/pictures/ServerGrab.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Property.h"

#include <QHash>

#include <algorithm>
#include <vector>

#include <unistd.h>

namespace ardeno {

namespace {

// The connections to the server, each with the process at its other end; a window's number tells its connection.
class Connections final {
public:
    explicit Connections(const X11Connection &connection)
        : m_mask(xcb_get_setup(connection.xcb())->resource_id_mask), m_processes(connectedProcesses(connection))
    {
    }

    quint32 of(xcb_window_t window) const { return window & ~m_mask; }

    // Those of this process and of others that run the same program.
    QSet<quint32> own() const
    {
        const QString program = ProcessFacts(getpid()).program();
        QSet<quint32> found;
        for (auto process = m_processes.cbegin(); process != m_processes.cend(); ++process) {
            if (*process == getpid() || (!program.isEmpty() && ProcessFacts(*process).program() == program))
                found.insert(process.key());
        }
        return found;
    }

private:
    quint32 m_mask;
    QHash<quint32, qint32> m_processes;
};

QList<xcb_window_t> numbersOf(const QList<TopLevel> &windows)
{
    QList<xcb_window_t> numbers;
    for (const TopLevel &window : windows)
        numbers.append(window.id);
    return numbers;
}

// The applications' windows by their frames; windows without a frame by themselves.
using Clients = QHash<xcb_window_t, xcb_window_t>;

QSet<xcb_window_t> ownWindows(const X11Connection &connection, const Clients &clients)
{
    const Connections connections(connection);
    const QSet<quint32> own = connections.own();
    QSet<xcb_window_t> found;
    for (auto client = clients.cbegin(); client != clients.cend(); ++client) {
        if (own.contains(connections.of(client.value())) || own.contains(connections.of(client.key())))
            found.insert(client.key());
    }
    return found;
}

// Of the program itself where it is installed, and in a recording of processes that have come since.
bool isAlwaysLeftOut(const WindowOwner &owner, const Exclusion &exclusion)
{
    const bool isLater = exclusion.onlyProcesses && !(owner.peer && exclusion.onlyProcesses->contains(*owner.peer));
    return isLater || owner.applicationID == exclusion.ownAppID;
}

// Windows that are mapped but not to be seen: compositing managers keep those of other desktops and minimised ones.
QSet<xcb_window_t> hiddenWindows(const X11Connection &connection, const QList<TopLevel> &windows,
                                 const Clients &clients)
{
    constexpr quint32 everyDesktop = ~0U;
    const quint32 current =
        X11Property(connection, connection.root(), X11Atom::NetCurrentDesktop).cardinal().value_or(everyDesktop);
    std::vector<X11Property> states;
    std::vector<X11Property> desktops;
    for (const TopLevel &window : windows) {
        states.emplace_back(connection, clients.value(window.id), X11Atom::NetWmState);
        desktops.emplace_back(connection, clients.value(window.id), X11Atom::NetWmDesktop);
    }
    QSet<xcb_window_t> hidden;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const quint32 desktop = desktops[size_t(i)].cardinal().value_or(everyDesktop);
        const bool isElsewhere = current != everyDesktop && desktop != everyDesktop && desktop != current;
        const bool isMinimised = states[size_t(i)].cardinals().contains(connection.atom(X11Atom::NetWmStateHidden));
        if (isElsewhere || isMinimised) // Popups have neither property.
            hidden.insert(windows[i].id);
    }
    return hidden;
}

bool hasCompositingManager(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const xcb_atom_t selection = connection.atom(X11Atom::NetCompositorSelection);
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection), nullptr));
    return reply && reply->owner != XCB_NONE;
}

Clients clientsOf(const X11Connection &connection, const QList<TopLevel> &windows)
{
    const auto inside = WindowTree::clientsInside(connection, numbersOf(windows));
    Clients clients;
    for (auto client = inside.cbegin(); client != inside.cend(); ++client)
        clients.insert(client.key(), client->window);
    return clients;
}

Clients clientsOf(const QHash<xcb_window_t, WindowOwner> &owners)
{
    Clients clients;
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner)
        clients.insert(owner.key(), owner->client);
    return clients;
}

} // namespace

void WindowVisibility::leaveOutStrangers(const QList<TopLevel> &windows, const std::function<bool(xcb_window_t)> &isNew)
{
    for (const TopLevel &window : windows) {
        if (knows(window.id) && !isNew(window.id))
            continue;
        allowed.remove(window.id);
        leftOut.insert(window.id);
    }
}

// A compositing manager shows windows for a while after
// they have gone, so there it is enough that there might have been one.
bool mayShowLeftOut(const WindowVisibility &visibility, const QList<TopLevel> &windows, const Exclusion &exclusion)
{
    const bool lingers = visibility.isComposited;
    if (lingers && !exclusion.appIDs.isEmpty())
        return true;
    return std::any_of(windows.cbegin(), windows.cend(), [&](const TopLevel &window) {
        return (window.isViewable || lingers) && visibility.leftOut.contains(window.id);
    });
}

WindowVisibility chooseWindows(const X11Connection &connection, DesktopEntries &entries, const QList<TopLevel> &windows,
                               const Exclusion &exclusion)
{
    Q_ASSERT(!ServerGrab::isHeld());
    WindowVisibility visibility;
    Clients clients;
    if (exclusion.appIDs.isEmpty()) {
        clients = clientsOf(connection, windows);
    } else {
        entries.setExcluded(exclusion.appIDs);
        const auto owners = WindowOwners(connection, entries).owners(numbersOf(windows));
        for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
            if (owner->isExcluded || isAlwaysLeftOut(*owner, exclusion))
                visibility.leftOut.insert(owner.key());
        }
        clients = clientsOf(owners);
    }
    visibility.leftOut += ownWindows(connection, clients);
    for (const TopLevel &window : windows) {
        if (!visibility.leftOut.contains(window.id))
            visibility.allowed.insert(window.id);
    }
    visibility.isComposited = hasCompositingManager(connection);
    if (visibility.isComposited)
        visibility.hidden = hiddenWindows(connection, viewableOf(windows), clients);
    return visibility;
}

} // namespace ardeno
