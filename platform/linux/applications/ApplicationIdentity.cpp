// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/ApplicationIdentity.h"

#include "platform/linux/applications/ApplicationNames.h"
#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/running/ProcessFacts.h"

#include <algorithm>

namespace ardeno {

namespace {

using Certainty = ApplicationIdentity::Certainty;

QSet<QString> namesOf(const WindowHints &hints)
{
    return ApplicationNames::ofApplication(hints.gtkApplication) + ApplicationNames::ofApplication(hints.kdeFile) +
           ApplicationNames::ofWindow(hints.instance) + ApplicationNames::ofWindow(hints.windowClass);
}

// The one of several that fits a window best.
std::optional<DesktopEntry> chosen(const QList<DesktopEntry> &several, const WindowHints &hints,
                                   const std::optional<DesktopEntry> &ofProcess)
{
    if (ofProcess && several.contains(*ofProcess))
        return ofProcess;
    const QSet<QString> names = namesOf(hints);
    std::optional<DesktopEntry> found;
    for (const DesktopEntry &entry : several) {
        if (!names.intersects(ApplicationNames::ofApplication(entry.id)))
            continue;
        if (found)
            return std::nullopt;
        found = entry;
    }
    return found;
}

// Whatever a control group was made for, the programs started from there are in it, too.
bool agrees(const ApplicationTraces &application, const QString &program, const QStringList &arguments)
{
    return program.isEmpty() || application.programs.isEmpty() ||
           application.imaginable.intersects(ApplicationNames::ofCommand(program, arguments));
}

bool mayBe(const ApplicationIdentity &identity, const ApplicationTraces &excluded)
{
    if (identity.entry && excluded.identifiers.contains(ApplicationNames::folded(identity.entry->id)))
        return true;
    if (identity.names.intersects(excluded.names) || excluded.identifiers.contains(identity.startedAs))
        return true;
    if (identity.certainty == Certainty::Certain)
        return false;
    // What has left no trace may be anything that is not known.
    return identity.imaginable.intersects(excluded.imaginable) || (!excluded.isKnown && !identity.entry);
}

} // namespace

ApplicationIdentification::ApplicationIdentification(DesktopEntries &entries) : m_entries(entries)
{
    for (const QString &id : entries.excluded())
        m_excluded.insert(id, entries.traces(id));
}

std::optional<DesktopEntry> ApplicationIdentification::findID(const QString &id)
{
    const QString name = id.endsWith(".desktop") ? id.chopped(8) : id;
    return name.isEmpty() || name.contains('/') ? std::nullopt : m_entries.find(name);
}

std::optional<DesktopEntry> ApplicationIdentification::named(const WindowHints &hints)
{
    auto entry = findID(hints.gtkApplication);
    return entry ? entry : findID(hints.kdeFile);
}

QList<DesktopEntry> ApplicationIdentification::claimants(const WindowHints &hints)
{
    for (const QString &name : {hints.windowClass, hints.instance, hints.gtkApplication, hints.kdeFile}) {
        if (const QList<DesktopEntry> entries = m_entries.findByWindowName(name); !entries.isEmpty())
            return entries;
    }
    return {};
}

ApplicationIdentity ApplicationIdentification::ofHints(const WindowHints &hints)
{
    ApplicationIdentity identity{.entry = named(hints), .names = namesOf(hints)};
    identity.imaginable = identity.names;
    for (const QString &name : {hints.windowClass, hints.instance})
        identity.imaginable += ApplicationNames::imaginable(name);
    if (identity.entry) {
        identity.certainty = Certainty::Certain;
        return identity;
    }
    const QList<DesktopEntry> claiming = claimants(hints);
    if (claiming.isEmpty())
        return identity;
    identity.certainty = claiming.size() == 1 ? Certainty::Certain : Certainty::Likely;
    const auto ofItsProcess = hints.processID && claiming.size() > 1 ? ofProcess(*hints.processID).entry : std::nullopt;
    identity.entry = claiming.size() == 1 ? claiming.first() : chosen(claiming, hints, ofItsProcess);
    return identity;
}

ApplicationIdentity ApplicationIdentification::ofWindow(const WindowHints &hints)
{
    ApplicationIdentity identity = ofHints(hints);
    if (hints.processID) {
        if (const auto browser = browserOf(*hints.processID))
            beBrowser(*browser, identity);
    }
    if (!hints.processID || (identity.certainty == Certainty::Certain && !hasExclusions()))
        return identity;
    const ApplicationIdentity process = ofProcess(*hints.processID);
    identity.startedAs = process.startedAs;
    if (identity.certainty == Certainty::Certain)
        return identity;
    identity.imaginable += process.imaginable;
    // One of several that claim it, of which nobody knows, is no other one either.
    if (identity.certainty == Certainty::None) {
        identity.entry = process.entry;
        identity.certainty = process.certainty;
    }
    return identity;
}

ApplicationIdentity ApplicationIdentification::ofProcess(qint32 processID)
{
    const auto known = m_processes.constFind(processID);
    if (known == m_processes.constEnd())
        return *m_processes.insert(processID, lookUpProcess(processID));
    return *known;
}

std::optional<KnownBrowser> ApplicationIdentification::browserOf(qint32 processID)
{
    const auto known = m_browsers.constFind(processID);
    if (known == m_browsers.constEnd())
        return *m_browsers.insert(processID, BrowserProcesses::browserOf(processID));
    return *known;
}

// Whatever its desktop file and its windows call it: its pages, its tabs and its exclusion go by the browser.
void ApplicationIdentification::beBrowser(const KnownBrowser &browser, ApplicationIdentity &identity)
{
    const auto installed = m_entries.find(browser.id);
    if (!identity.entry || (installed && identity.entry->id != browser.id))
        identity.entry = installed;
    if (!identity.entry)
        identity.entry = DesktopEntry{.name = browser.name, .isBrowser = true};
    identity.entry->id = browser.id;
    identity.certainty = Certainty::Certain;
    identity.names += ApplicationNames::ofApplication(browser.id);
}

ApplicationIdentity ApplicationIdentification::lookUpProcess(qint32 processID)
{
    const ProcessFacts facts(processID);
    const QString program = facts.program();
    const QString launched = facts.launchedDesktopFileID();
    const QString scope = facts.scopeApplicationID();
    const QStringList arguments = facts.arguments();
    ApplicationIdentity identity{.entry = findID(launched)};
    if (!identity.entry && !scope.isEmpty() && agrees(m_entries.traces(scope), program, arguments))
        identity.entry = findID(scope);
    const QList<DesktopEntry> fitting =
        program.isEmpty() ? QList<DesktopEntry>() : m_entries.findByCommand(program, arguments);
    if (fitting.size() == 1) {
        identity.startedAs = ApplicationNames::folded(fitting.first().id);
        identity.entry = identity.entry.value_or(fitting.first());
    }
    identity.certainty = identity.entry ? Certainty::Likely : Certainty::None;
    identity.imaginable = ApplicationNames::imaginable(launched) + ApplicationNames::imaginable(scope) +
                          ApplicationNames::imaginable(facts.name()) + ApplicationNames::ofCommand(program, arguments);
    return identity;
}

std::optional<QString> ApplicationIdentification::excludedBy(const ApplicationIdentity &identity) const
{
    for (auto excluded = m_excluded.cbegin(); excluded != m_excluded.cend(); ++excluded) {
        if (mayBe(identity, *excluded))
            return excluded.key();
    }
    return std::nullopt;
}

} // namespace ardeno
