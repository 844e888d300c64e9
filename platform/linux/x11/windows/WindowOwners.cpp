// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/WindowOwners.h"

#include "desktop/Workspace.h"
#include "platform/linux/running/ProcessFacts.h"
#include "platform/linux/x11/windows/ExcludedOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"

#include <QSet>
#include <QStringList>

namespace ardeno {

namespace {

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

WindowOwner owner(const X11WindowHints &hints, const std::optional<DesktopEntry> &entry)
{
    WindowOwner result{.client = hints.client, .processID = hints.application.processID, .peer = hints.peer};
    if (entry) {
        result.applicationID = entry->id;
        result.applicationName = entry->name;
        result.isIdentified = true;
    }
    return result;
}

// What a window calls itself, else the file that its process runs; empty when neither is known.
QString ownName(const WindowHints &hints)
{
    if (!hints.windowClass.isEmpty())
        return hints.windowClass;
    if (!hints.instance.isEmpty() || !hints.processID)
        return hints.instance;
    return ProcessFacts(*hints.processID).program().section('/', -1);
}

// A managed window that says nothing of an installed application: that of the other windows of its process, or a name
// of its own. Of which of several applications it is, nobody knows.
void name(WindowOwner &owner, const X11WindowHints &hints, const QList<DesktopEntry> &ofProcess)
{
    if (ofProcess.size() == 1) {
        owner.applicationID = ofProcess.first().id;
        owner.applicationName = ofProcess.first().name;
        return;
    }
    const QString name = ownName(hints.application);
    if (!ofProcess.isEmpty() || name.isEmpty())
        return;
    owner.applicationID = WindowClass::prefix + name;
    owner.applicationName = name;
}

WindowOwner managedOwner(const JudgedWindow &window, const QList<DesktopEntry> &sameProcess)
{
    // What runs on another machine is no application that is installed here.
    const auto entry = window.hints.isRemote ? std::nullopt : window.identity.entry;
    WindowOwner found = owner(window.hints, entry);
    if (!entry)
        name(found, window.hints, sameProcess);
    return found;
}

WindowOwner popupOwner(const JudgedWindow &window, const QList<DesktopEntry> &sameProcess)
{
    return owner(window.hints, ofProcess(sameProcess, window.identity.entry));
}

JudgedWindow identified(const X11WindowHints &hints, ApplicationIdentification &identification)
{
    return {hints,
            hints.isManaged ? identification.ofWindow(hints.application) : identification.ofHints(hints.application)};
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

QHash<xcb_window_t, JudgedWindow> judged(const QHash<xcb_window_t, X11WindowHints> &hints,
                                         ApplicationIdentification &identification,
                                         ApplicationsOfProcesses &applications)
{
    QHash<xcb_window_t, JudgedWindow> windows;
    for (auto hint = hints.begin(); hint != hints.end(); ++hint) {
        const JudgedWindow window = identified(*hint, identification);
        if (hint->isManaged)
            remember(applications, hint->application.processID, window.identity.entry);
        windows.insert(hint.key(), window);
    }
    for (JudgedWindow &window : windows) {
        // A popup that says nothing, of a process whose windows say nothing.
        const auto process = window.hints.application.processID;
        if (!window.hints.isManaged && !window.identity.entry && process && !applications.contains(*process))
            window.identity = identification.ofWindow(window.hints.application);
    }
    return windows;
}

} // namespace

QHash<xcb_window_t, WindowOwner> WindowOwners::owners(const QList<xcb_window_t> &topLevels)
{
    // The other windows of a popup's process may not be among those asked for.
    const QList<xcb_window_t> all = united(topLevels, WindowTree::clients(m_connection));
    ApplicationIdentification identification(m_entries);
    ApplicationsOfProcesses applications;
    const QHash<xcb_window_t, JudgedWindow> windows =
        judged(readWindowHints(m_connection, all), identification, applications);
    const auto applicationsOf = [&](const JudgedWindow &window) {
        return applications.value(window.hints.application.processID.value_or(0));
    };
    const ExcludedOwners excluded(windows, identification, xcb_get_setup(m_connection.xcb())->resource_id_mask);
    QHash<xcb_window_t, WindowOwner> result;
    for (const xcb_window_t topLevel : topLevels) {
        const JudgedWindow window = windows.value(topLevel);
        WindowOwner found = window.hints.isManaged ? managedOwner(window, applicationsOf(window))
                                                   : popupOwner(window, applicationsOf(window));
        const auto excludedID = identification.hasExclusions() ? excluded.of(topLevel) : std::nullopt;
        found.isExcluded = excludedID.has_value();
        if (excludedID)
            found.applicationID = excludedID;
        result.insert(topLevel, found);
    }
    return result;
}

} // namespace ardeno
