// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/ApplicationIdentity.h"
#include "platform/linux/x11/windows/X11WindowHints.h"

#include <QHash>
#include <QString>

#include <optional>

namespace ardeno {

// What is known of one top-level window when it is judged.
struct JudgedWindow {
    X11WindowHints hints = {};
    ApplicationIdentity identity = {};
};

// Which windows count as those of excluded applications: those that may be one of theirs, with everything that cannot
// be shown to be of another one. That is what says nothing of itself in a process or on a connection of an excluded
// application (menus, tool tips, drag icons), dialogs that others draw for it, and of windows whose application is not
// known dialogs for no window in particular and those without a process.
class ExcludedOwners final {
public:
    // The windows outlive it. The mask is that of the windows' numbers on one connection.
    ExcludedOwners(const QHash<xcb_window_t, JudgedWindow> &windows, const ApplicationIdentification &identification,
                   quint32 numberMask);

    // The excluded application; absent for a window that may be shown.
    std::optional<QString> of(xcb_window_t window) const;

private:
    using Judgement = std::optional<QString>;

    Judgement byProcess(const JudgedWindow &window) const;
    Judgement byLeaders(const JudgedWindow &window) const;

    const QHash<xcb_window_t, JudgedWindow> &m_windows;
    quint32 m_mask;
    QString m_any = {};                            // What is not known may be a window of any excluded application.
    QHash<xcb_window_t, Judgement> m_clients = {}; // Apart from dialogs for others.
    QHash<xcb_window_t, xcb_window_t> m_leaders = {};
    QHash<quint32, QString> m_connections = {};
    QHash<qint32, QString> m_processes = {};
    QHash<qint32, QString> m_dialogProcesses = {}; // Those that draw dialogs for an excluded application.
};

} // namespace ardeno
