// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowHints.h"

#include "platform/linux/running/ProcessFacts.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Property.h"

#include <xcb/res.h>

#include <QSysInfo>

#include <utility>
#include <vector>

namespace ardeno {

namespace {

// Whether a window's WM_CLIENT_MACHINE is this machine, with or without its domain.
bool isThisMachine(const QString &name)
{
    const QString own = QSysInfo::machineHostName();
    const auto host = [](const QString &full) { return full.section('.', 0, 0).toLower(); };
    const bool haveDomains = name.contains('.') && own.contains('.');
    return host(name) == "localhost" ||
           (haveDomains ? name.compare(own, Qt::CaseInsensitive) == 0 : host(name) == host(own));
}

// A question about a window, asked together with those of all others.
class HintsQuestion final {
public:
    HintsQuestion(const X11Connection &connection, const WindowTree::Client &client)
        : m_connection(connection),
          m_client(client),
          m_pid(connection, client.window, X11Atom::NetWmPid),
          m_gtk(connection, client.window, X11Atom::GtkApplicationID),
          m_kde(connection, client.window, X11Atom::KdeDesktopFile),
          m_class(connection, client.window, xcb_atom_t(XCB_ATOM_WM_CLASS)),
          m_machine(connection, client.window, xcb_atom_t(XCB_ATOM_WM_CLIENT_MACHINE)),
          m_leader(connection, client.window, xcb_atom_t(XCB_ATOM_WM_TRANSIENT_FOR))
    {
        const xcb_res_client_id_spec_t spec{client.window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        if (connection.hasClientIDs())
            m_ids = xcb_res_query_client_ids(connection.xcb(), 1, &spec);
    }

    X11WindowHints read()
    {
        X11WindowHints hints{.client = m_client.window, .isManaged = m_client.isManaged, .peer = readClientPid()};
        const QString machine = m_machine.text().value_or(QString());
        hints.isRemote = machine.isEmpty() ? isBroughtBySSH(hints.peer) : !isThisMachine(machine);
        hints.leader = m_leader.cardinal().value_or(XCB_NONE);
        hints.application.gtkApplication = m_gtk.text().value_or(QString());
        hints.application.kdeFile = m_kde.text().value_or(QString());
        const QList<QString> names = m_class.texts();
        hints.application.instance = names.value(0);
        hints.application.windowClass = names.value(1);
        const auto claimed = m_pid.cardinal();
        // What the server knows of the connection is worth more than what the window claims.
        if (!hints.peer && !hints.isRemote && claimed && *claimed > 0)
            hints.peer = static_cast<qint32>(*claimed);
        if (!hints.isRemote)
            hints.application.processID = hints.peer;
        return hints;
    }

private:
    static bool isBroughtBySSH(std::optional<qint32> peer) { return peer && ProcessFacts(*peer).name() == "ssh"; }

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
    X11Property m_machine;
    X11Property m_leader;
};

} // namespace

QHash<xcb_window_t, X11WindowHints> readWindowHints(const X11Connection &connection, const QList<xcb_window_t> &windows)
{
    const QHash<xcb_window_t, WindowTree::Client> clients = WindowTree::clientsInside(connection, windows);
    std::vector<std::pair<xcb_window_t, HintsQuestion>> questions;
    questions.reserve(size_t(clients.size()));
    for (auto client = clients.begin(); client != clients.end(); ++client)
        questions.emplace_back(client.key(), HintsQuestion(connection, client.value()));
    QHash<xcb_window_t, X11WindowHints> hints;
    for (auto &[window, question] : questions)
        hints.insert(window, question.read());
    return hints;
}

} // namespace ardeno
