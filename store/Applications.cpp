// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Applications.h"

#include "capture/WorkspaceCapture.h"
#include "support/Identifiers.h"
#include "support/Text.h"

#include <algorithm>
#include <utility>

namespace ardeno {

Applications::Applications(Operations &operations, Desktop &desktop, const ExclusionRules &rules, RunningIDs runningIDs)
    : m_operations(operations), m_desktop(desktop), m_rules(rules), m_runningIDs(std::move(runningIDs))
{
    if (!m_runningIDs)
        m_runningIDs = [this] { return idsOf(m_desktop.workspace->runningApplications()) - QSet{QString()}; };
}

void Applications::refreshRunningApplications()
{
    runningApplicationIDs.set(m_runningIDs());
}

void Applications::watchRunningApplications()
{
    m_isWatching = true;
    m_desktop.workspace->setChangeHandler([this] { refreshRunningApplications(); });
    refreshRunningApplications(); // After the watch has begun, so that nothing falls in between.
}

void Applications::stopWatching()
{
    if (m_isWatching)
        m_desktop.workspace->setChangeHandler({});
}

bool Applications::isWorkspaceActive(const Checkpoint &checkpoint) const
{
    const QSet<QString> &running = runningApplicationIDs();
    return !checkpoint.apps.isEmpty() && std::all_of(checkpoint.apps.begin(), checkpoint.apps.end(),
                                                     [&](const SavedApp &app) { return running.contains(app.id); });
}

QList<SavedApp> Applications::runningApps() const
{
    return WorkspaceCapture::applications(*m_desktop.workspace, m_desktop.roles, m_rules.exclusions().appIDs());
}

QList<InstalledApplication> Applications::installedApps() const
{
    QList<InstalledApplication> apps = m_desktop.workspace->installedApplications();
    apps.removeIf([&](const InstalledApplication &app) { return app.id.isEmpty() || app.id == m_desktop.roles.ownID; });
    for (InstalledApplication &app : apps) {
        app.name = app.name.simplified();
        if (app.name.isEmpty())
            app.name = app.id;
    }
    const NameOrder isBefore;
    std::stable_sort(apps.begin(), apps.end(), [&](const InstalledApplication &a, const InstalledApplication &b) {
        return isBefore(a.name, b.name);
    });
    return apps;
}

QString Applications::iconName(const QString &appID)
{
    if (!m_iconNames) {
        m_iconNames.emplace();
        for (const InstalledApplication &application : m_desktop.workspace->installedApplications())
            m_iconNames->insert(application.id, application.iconName);
    }
    return m_iconNames->value(appID);
}

QCoro::Task<Outcome> Applications::showFile(QString path)
{
    return m_operations.carryOut(reveal(std::move(path)));
}

QCoro::Task<Outcome> Applications::reveal(QString path)
{
    Outcome outcome{.subject = "show file"};
    try {
        co_await m_desktop.launcher->reveal(path);
        outcome.isDone = true;
    } catch (...) {
        outcome.fail(tr("Could not show the file: ") + Failure::current().description());
    }
    co_return outcome;
}

bool Applications::openMail(const QUrl &address)
{
    return m_desktop.mailProgram->openDraft(address);
}

} // namespace ardeno
