// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/WindowChoice.h"

#include "platform/linux/x11/WindowTree.h"
#include "platform/linux/x11/X11Property.h"

#include <QByteArray>
#include <QHash>

#include <vector>

#include <unistd.h>

#include <xcb/res.h>

namespace ardeno {

namespace {

QByteArray programOf(qint32 processID)
{
    const QByteArray link = "/proc/" + QByteArray::number(processID) + "/exe";
    char path[4096];
    const ssize_t length = readlink(link.constData(), path, sizeof path);
    return length > 0 ? QByteArray(path, length) : QByteArray();
}

// The connections to the server, each with the process at its other end; a window's number tells its connection.
class Connections final {
public:
    explicit Connections(const X11Connection &connection) : m_mask(xcb_get_setup(connection.xcb())->resource_id_mask)
    {
        if (!connection.hasClientIDs())
            return;
        xcb_connection_t *xcb = connection.xcb();
        const xcb_res_client_id_spec_t all = {XCB_NONE, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        const X11Reply<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(xcb, xcb_res_query_client_ids(xcb, 1, &all), nullptr));
        if (!reply)
            return;
        for (auto value = xcb_res_query_client_ids_ids_iterator(reply.get()); value.rem > 0;
             xcb_res_client_id_value_next(&value)) {
            if (xcb_res_client_id_value_value_length(value.data) > 0)
                m_processes.insert(of(value.data->spec.client), qint32(*xcb_res_client_id_value_value(value.data)));
        }
    }

    quint32 of(xcb_window_t window) const { return window & ~m_mask; }

    // Those of this process and of others that run the same program.
    QSet<quint32> own() const
    {
        const QByteArray program = programOf(getpid());
        QSet<quint32> found;
        for (auto process = m_processes.cbegin(); process != m_processes.cend(); ++process) {
            if (*process == getpid() || (!program.isEmpty() && programOf(*process) == program))
                found.insert(process.key());
        }
        return found;
    }

private:
    quint32 m_mask;
    QHash<quint32, qint32> m_processes = {};
};

QList<xcb_window_t> numbersOf(const QList<TopLevel> &windows)
{
    QList<xcb_window_t> numbers;
    for (const TopLevel &window : windows)
        numbers.append(window.id);
    return numbers;
}

QSet<xcb_window_t> ownWindows(const X11Connection &connection, const QList<TopLevel> &windows)
{
    const Connections connections(connection);
    const QSet<quint32> own = connections.own();
    QSet<xcb_window_t> found;
    if (own.isEmpty())
        return found;
    const auto clients = WindowTree::clientsInside(connection, numbersOf(windows));
    for (const TopLevel &window : windows) {
        if (own.contains(connections.of(clients.value(window.id).window)) || own.contains(connections.of(window.id)))
            found.insert(window.id);
    }
    return found;
}

// Windows of excluded applications, with everything that cannot be shown to be of another one: what says nothing about
// itself in a process or on a connection of an excluded application (menus, tool tips, drag icons), and windows of
// which neither process nor application is known.
class ExcludedWindows final {
public:
    ExcludedWindows(const X11Connection &connection, const QHash<xcb_window_t, WindowOwner> &owners,
                    const Exclusion &exclusion)
        : m_mask(xcb_get_setup(connection.xcb())->resource_id_mask), m_exclusion(exclusion)
    {
        for (const WindowOwner &owner : owners) {
            if (!isNamed(owner))
                continue;
            m_connections.insert(connectionOf(owner));
            if (owner.processID)
                m_processes.insert(*owner.processID);
        }
    }

    bool contains(const TopLevel &window, const WindowOwner &owner) const
    {
        if (isNamed(owner))
            return true;
        const bool isPopup = window.isOverrideRedirect && owner.client == window.id;
        if (isPopup && owner.processID && m_processes.contains(*owner.processID))
            return true; // Of which of its applications, a process with several does not say.
        if (owner.applicationID)
            return false;
        return !owner.processID || m_processes.contains(*owner.processID) ||
               m_connections.contains(connectionOf(owner));
    }

private:
    bool isNamed(const WindowOwner &owner) const
    {
        return owner.applicationID &&
               (m_exclusion.appIDs.contains(*owner.applicationID) || *owner.applicationID == m_exclusion.ownAppID);
    }

    quint32 connectionOf(const WindowOwner &owner) const { return owner.client & ~m_mask; }

    quint32 m_mask;
    const Exclusion &m_exclusion;
    QSet<quint32> m_connections = {};
    QSet<qint32> m_processes = {};
};

// Windows that are mapped but not to be seen: compositing managers keep those of other desktops and minimised ones.
QSet<xcb_window_t> hiddenWindows(const X11Connection &connection, const QList<TopLevel> &windows)
{
    constexpr quint32 everyDesktop = ~0U;
    const quint32 current =
        X11Property(connection, connection.root(), X11Atom::NetCurrentDesktop).cardinal().value_or(everyDesktop);
    const auto clients = WindowTree::clientsInside(connection, numbersOf(windows));
    std::vector<X11Property> states;
    std::vector<X11Property> desktops;
    for (const TopLevel &window : windows) {
        states.emplace_back(connection, clients.value(window.id).window, X11Atom::NetWmState);
        desktops.emplace_back(connection, clients.value(window.id).window, X11Atom::NetWmDesktop);
    }
    QSet<xcb_window_t> hidden;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const quint32 desktop = desktops[size_t(i)].cardinal().value_or(everyDesktop);
        const bool isElsewhere = current != everyDesktop && desktop != everyDesktop && desktop != current;
        const bool isMinimised = states[size_t(i)].cardinals().contains(connection.atom(X11Atom::NetWmStateHidden));
        if (clients.value(windows[i].id).isManaged && (isElsewhere || isMinimised))
            hidden.insert(windows[i].id);
    }
    return hidden;
}

} // namespace

bool hasCompositingManager(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const xcb_atom_t selection = connection.atom(X11Atom::NetCompositorSelection);
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection), nullptr));
    return reply && reply->owner != XCB_NONE;
}

WindowChoice chooseWindows(const X11Connection &connection, DesktopEntries &entries, const QList<TopLevel> &windows,
                           const Exclusion &exclusion)
{
    WindowChoice choice;
    choice.leftOut = ownWindows(connection, windows);
    if (!exclusion.appIDs.isEmpty()) {
        const auto owners = WindowOwners(connection, entries).owners(numbersOf(windows));
        const ExcludedWindows excluded(connection, owners, exclusion);
        for (const TopLevel &window : windows) {
            if (excluded.contains(window, owners.value(window.id)))
                choice.leftOut.insert(window.id);
        }
    }
    for (const TopLevel &window : windows) {
        if (!choice.leftOut.contains(window.id))
            choice.allowed.insert(window.id);
    }
    if (hasCompositingManager(connection))
        choice.hidden = hiddenWindows(connection, viewableOf(windows));
    return choice;
}

} // namespace ardeno
