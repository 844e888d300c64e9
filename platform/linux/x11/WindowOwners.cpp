// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/WindowOwners.h"

#include "desktop/Workspace.h"
#include "platform/linux/common/ProcessFacts.h"
#include "platform/linux/x11/WindowTree.h"
#include "platform/linux/x11/X11Property.h"

#include <xcb/res.h>

#include <QSet>
#include <QStringList>

#include <utility>
#include <vector>

namespace ardeno {

namespace {

// What a window says about its application.
struct Hints {
    xcb_window_t client = XCB_NONE;
    bool isManaged = false;
    std::optional<qint32> processID = {};
    QString gtkApplication = {};
    QString kdeFile = {};
    QString instance = {};
    QString windowClass = {};
};

// A question about a window, asked together with those of all others.
class Question final {
public:
    Question(const X11Connection &connection, const WindowTree::Client &client)
        : m_connection(connection),
          m_client(client),
          m_pid(connection, client.window, X11Atom::NetWmPid),
          m_gtk(connection, client.window, X11Atom::GtkApplicationID),
          m_kde(connection, client.window, X11Atom::KdeDesktopFile),
          m_class(connection, client.window, xcb_atom_t(XCB_ATOM_WM_CLASS))
    {
        const xcb_res_client_id_spec_t spec{client.window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        if (connection.hasClientIDs())
            m_ids = xcb_res_query_client_ids(connection.xcb(), 1, &spec);
    }

    Hints read()
    {
        Hints hints{.client = m_client.window, .isManaged = m_client.isManaged};
        const auto serverPid = readClientPid();
        const auto claimedPid = m_pid.cardinal();
        // What the server knows of the connection is worth more than what the window claims.
        if (serverPid)
            hints.processID = serverPid;
        else if (claimedPid && *claimedPid > 0)
            hints.processID = static_cast<qint32>(*claimedPid);
        hints.gtkApplication = m_gtk.text().value_or(QString());
        hints.kdeFile = m_kde.text().value_or(QString());
        const QList<QString> names = m_class.texts();
        hints.instance = names.value(0);
        hints.windowClass = names.value(1);
        return hints;
    }

private:
    std::optional<qint32> readClientPid()
    {
        if (!m_ids)
            return std::nullopt;
        xcb_generic_error_t *error = nullptr;
        const X11Reply<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(m_connection.xcb(), *std::exchange(m_ids, std::nullopt), &error));
        std::free(error);
        if (!reply)
            return std::nullopt;
        auto values = xcb_res_query_client_ids_ids_iterator(reply.get());
        for (; values.rem > 0; xcb_res_client_id_value_next(&values)) {
            const bool isPid = (values.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
            if (isPid && xcb_res_client_id_value_value_length(values.data) > 0) {
                const auto pid = static_cast<qint32>(*xcb_res_client_id_value_value(values.data));
                return pid > 0 ? std::optional(pid) : std::nullopt;
            }
        }
        return std::nullopt;
    }

    const X11Connection &m_connection;
    WindowTree::Client m_client;
    std::optional<xcb_res_query_client_ids_cookie_t> m_ids = {};
    X11Property m_pid;
    X11Property m_gtk;
    X11Property m_kde;
    X11Property m_class;
};

// Finds the application of windows and processes among the installed ones; remembers processes for one round.
class Identification final {
public:
    explicit Identification(DesktopEntries &entries) : m_entries(entries) {}

    // By what the window itself says.
    std::optional<DesktopEntry> byHints(const Hints &hints)
    {
        if (auto entry = findID(hints.gtkApplication))
            return entry;
        if (auto entry = findID(hints.kdeFile))
            return entry;
        if (auto entry = m_entries.findByWindowClass(hints.windowClass))
            return entry;
        if (auto entry = findID(hints.windowClass))
            return entry;
        return findID(hints.instance);
    }

    // By how its process was started.
    std::optional<DesktopEntry> byProcess(std::optional<qint32> processID)
    {
        if (!processID)
            return std::nullopt;
        const auto known = m_processes.constFind(*processID);
        if (known != m_processes.constEnd())
            return *known;
        auto entry = lookUpProcess(*processID);
        m_processes.insert(*processID, entry);
        return entry;
    }

private:
    std::optional<DesktopEntry> findID(QString id)
    {
        if (id.endsWith(".desktop"))
            id.chop(8);
        return id.isEmpty() || id.contains('/') ? std::nullopt : m_entries.find(id);
    }

    std::optional<DesktopEntry> lookUpProcess(qint32 processID)
    {
        const ProcessFacts facts(processID);
        if (auto entry = findID(facts.launchedDesktopFileID()))
            return entry;
        if (auto entry = findID(facts.scopeApplicationID()))
            return entry;
        const QString program = facts.program();
        return program.isEmpty() ? std::nullopt : m_entries.findByCommand(program, facts.arguments());
    }

    DesktopEntries &m_entries;
    QHash<qint32, std::optional<DesktopEntry>> m_processes;
};

// The applications that the managed windows of each process belong to, the same list for all of its popups.
using ApplicationsOfProcesses = QHash<qint32, QList<DesktopEntry>>;

void remember(ApplicationsOfProcesses &applications, std::optional<qint32> processID,
              const std::optional<DesktopEntry> &entry)
{
    if (!processID || !entry)
        return;
    QList<DesktopEntry> &list = applications[*processID];
    if (!list.contains(*entry))
        list.append(*entry);
}

// A popup may say nothing or anything about itself; its process decides.
std::optional<DesktopEntry> ofProcess(const QList<DesktopEntry> &applications, const std::optional<DesktopEntry> &own)
{
    if (own && (applications.isEmpty() || applications.contains(*own)))
        return own;
    return applications.isEmpty() ? std::nullopt : std::optional(applications.first());
}

WindowOwner owner(const Hints &hints, const std::optional<DesktopEntry> &entry)
{
    WindowOwner result{.client = hints.client, .processID = hints.processID};
    if (entry) {
        result.applicationID = entry->id;
        result.applicationName = entry->name;
        result.isIdentified = true;
    }
    return result;
}

// What a window calls itself, else the file that its process runs; empty when neither is known.
QString ownName(const Hints &hints)
{
    if (!hints.windowClass.isEmpty())
        return hints.windowClass;
    if (!hints.instance.isEmpty() || !hints.processID)
        return hints.instance;
    return ProcessFacts(*hints.processID).program().section('/', -1);
}

// A managed window that says nothing of an installed application: that of the other windows of its process, or a name
// of its own. Of which of several applications it is, nobody knows.
void name(WindowOwner &owner, const Hints &hints, const QList<DesktopEntry> &ofProcess)
{
    if (ofProcess.size() == 1) {
        owner.applicationID = ofProcess.first().id;
        owner.applicationName = ofProcess.first().name;
        return;
    }
    const QString name = ownName(hints);
    if (!ofProcess.isEmpty() || name.isEmpty())
        return;
    owner.applicationID = WindowClass::prefix + name;
    owner.applicationName = name;
}

WindowOwner managedOwner(const Hints &hints, const std::optional<DesktopEntry> &own,
                         const QList<DesktopEntry> &sameProcess)
{
    WindowOwner found = owner(hints, own);
    if (!own)
        name(found, hints, sameProcess);
    return found;
}

WindowOwner popupOwner(const Hints &hints, const std::optional<DesktopEntry> &own,
                       const QList<DesktopEntry> &sameProcess, Identification &identification)
{
    const std::optional<DesktopEntry> entry = ofProcess(sameProcess, own);
    return owner(hints, entry ? entry : identification.byProcess(hints.processID));
}

QHash<xcb_window_t, Hints> readHints(const X11Connection &connection, const QList<xcb_window_t> &windows)
{
    const QHash<xcb_window_t, WindowTree::Client> clients = WindowTree::clientsInside(connection, windows);
    std::vector<std::pair<xcb_window_t, Question>> questions;
    questions.reserve(clients.size());
    for (auto client = clients.begin(); client != clients.end(); ++client)
        questions.emplace_back(client.key(), Question(connection, client.value()));
    QHash<xcb_window_t, Hints> hints;
    for (auto &[window, question] : questions)
        hints.insert(window, question.read());
    return hints;
}

QList<xcb_window_t> united(const QList<xcb_window_t> &a, const QList<xcb_window_t> &b)
{
    QSet<xcb_window_t> seen;
    QList<xcb_window_t> all;
    for (const xcb_window_t window : a + b) {
        if (!seen.contains(window))
            all.append(window);
        seen.insert(window);
    }
    return all;
}

} // namespace

QHash<xcb_window_t, WindowOwner> WindowOwners::owners(const QList<xcb_window_t> &topLevels)
{
    // The other windows of a popup's process may not be among those asked for.
    const QList<xcb_window_t> all = united(topLevels, WindowTree::clients(m_connection));
    const QHash<xcb_window_t, Hints> hints = readHints(m_connection, all);
    Identification identification(m_entries);
    ApplicationsOfProcesses applications;
    QHash<xcb_window_t, std::optional<DesktopEntry>> own;
    for (const xcb_window_t window : all) {
        const Hints &hint = *hints.constFind(window);
        auto entry = identification.byHints(hint);
        if (!entry && hint.isManaged)
            entry = identification.byProcess(hint.processID);
        if (hint.isManaged)
            remember(applications, hint.processID, entry);
        own.insert(window, entry);
    }
    QHash<xcb_window_t, WindowOwner> result;
    for (const xcb_window_t window : topLevels) {
        const Hints &hint = *hints.constFind(window);
        const QList<DesktopEntry> sameProcess = applications.value(hint.processID.value_or(0));
        result.insert(window, hint.isManaged ? managedOwner(hint, own.value(window), sameProcess)
                                             : popupOwner(hint, own.value(window), sameProcess, identification));
    }
    return result;
}

} // namespace ardeno
