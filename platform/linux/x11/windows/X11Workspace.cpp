// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Workspace.h"

#include "platform/linux/running/ProcessFacts.h"
#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <utility>

namespace ardeno {

namespace {

QStringList sorted(const QSet<QString> &texts)
{
    QStringList list = texts.values();
    list.sort();
    return list;
}

QSet<QString> toSet(const QStringList &list)
{
    return {list.begin(), list.end()};
}

} // namespace

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
    QList<InstalledApplication> starters;
    for (const DesktopEntry &entry : m_entries->shown()) {
        const QString id = DesktopEntries::browserOf(entry).value_or(entry.id);
        (id == entry.id ? applications : starters).append({id, entry.name, entry.iconName});
    }
    QSet<QString> seen; // A browser may be installed in two ways, and have starters of the user's own.
    QList<InstalledApplication> unique;
    for (const InstalledApplication &application : applications + starters) {
        if (!seen.contains(application.id))
            unique.append(application);
        seen.insert(application.id);
    }
    return unique;
}

std::optional<InstalledApplication> X11Workspace::findApplication(const QString &name)
{
    std::optional<DesktopEntry> entry = m_entries->find(name);
    if (!entry) {
        const QList<DesktopEntry> called = m_entries->findByWindowName(name);
        if (called.size() != 1)
            return std::nullopt;
        entry = called.first();
    }
    // A starter of a browser is that browser: its pages go by the browser's identifier.
    if (const auto browser = m_entries->browserOf(*entry))
        entry->id = *browser;
    return InstalledApplication{entry->id, entry->name, entry->iconName};
}

bool X11Workspace::isProgramRunning(const QString &appID)
{
    QSet<QString> programs;
    for (const QString &program : m_entries->traces(appID).programs)
        programs.insert(program.section('/', -1));
    return !programs.isEmpty() && ProcessFacts::isAnyRunning(programs);
}

std::optional<ApplicationMarks> X11Workspace::marks(const QString &appID)
{
    const ApplicationTraces traces = m_entries->traces(appID);
    if (!traces.isKnown)
        return std::nullopt;
    return ApplicationMarks{.id = appID,
                            .names = sorted(traces.names),
                            .hints = sorted(traces.imaginable),
                            .programs = sorted(toSet(traces.programs))};
}

void X11Workspace::setExcluded(const QSet<QString> &appIDs, const QList<ApplicationMarks> &marks)
{
    QHash<QString, ApplicationTraces> remembered;
    for (const ApplicationMarks &known : marks)
        remembered.insert(known.id, {.names = toSet(known.names),
                                     .imaginable = toSet(known.hints),
                                     .programs = known.programs,
                                     .isKnown = true});
    m_entries->remembered()->set(remembered);
    m_entries->setExcluded(appIDs);
}

void X11Workspace::setChangeHandler(std::function<void()> handler)
{
    m_watch.reset();
    if (!handler)
        return;
    try {
        m_watch = std::make_unique<X11ClientWatch>(std::move(handler));
    } catch (const Failure &) {
        // A display that has gone does not change.
    }
}

} // namespace ardeno
