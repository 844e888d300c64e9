// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ResumeFlow.h"

#include "capture/Reopening.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <QCoroTimer>
#include <QDeadlineTimer>
#include <QScopeGuard>

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds lookInterval(50);
constexpr std::chrono::seconds patienceForOthers(60); // A resume of many slow applications takes about half as long.

} // namespace

ResumeFlow::ResumeFlow(Operations &operations, Desktop &desktop, const Library &library, const ExclusionRules &rules,
                       OpenedPages openedPages)
    : m_operations(operations),
      m_desktop(desktop),
      m_library(library),
      m_rules(rules),
      m_openedPages(std::move(openedPages))
{
}

QCoro::Task<RestorePlan> ResumeFlow::restorePlan(Checkpoint checkpoint)
{
    const WorkspaceCapture::ReopeningTools tools{m_desktop, m_openedPages, m_rules.exclusions().appIDs()};
    co_return co_await WorkspaceCapture::presentPlan(checkpoint.apps, checkpoint.tabs, tools);
}

ResumeSelection ResumeSelection::missing(const RestorePlan &plan)
{
    return {idsOf(plan.appsToOpen), idsOf(plan.tabsToOpen)};
}

QCoro::Task<ResumeOutcome> ResumeFlow::restore(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout,
                                               Audience audience)
{
    return m_operations.carryOut(resume(std::move(checkpoint), std::move(choose), restoreLayout, audience), audience);
}

// A caller stops by itself, by going away.
ResumeControl ResumeFlow::controlFor(Audience audience)
{
    if (audience == Audience::Caller)
        return {};
    const auto tell = [this](const QString &name) {
        std::optional<ResumeProgress> progress = resuming();
        if (progress)
            progress->awaited = name;
        resuming.set(progress);
    };
    return {tell, [this] { return resuming() && resuming()->isStopping; }};
}

void ResumeFlow::stopResume()
{
    std::optional<ResumeProgress> progress = resuming();
    if (progress)
        progress->isStopping = true;
    resuming.set(progress);
}

// Throws Failure when another process does not come to an end.
QCoro::Task<LibraryLock> ResumeFlow::turnToResume(ResumeControl control)
{
    const LibraryLock::Request request{
        .root = m_library.storageFolder(), .access = LibraryLock::Access::Read, .file = LibraryLock::resumeFile};
    const QDeadlineTimer deadline(patienceForOthers);
    for (;;) {
        std::optional<LibraryLock> turn = LibraryLock::tryLock(request);
        if (turn)
            co_return std::move(*turn);
        if (deadline.hasExpired())
            break;
        if (control.isStopped())
            throw Failure("Resume", 2, tr("The resume was stopped before it opened anything."));
        co_await QCoro::sleepFor(lookInterval);
    }
    const auto other = LibraryLock::holder(request.root, request.file);
    throw Failure("Resume", 1,
                  other ? tr("%1 (process %2) is still resuming a checkpoint.").arg(other->name).arg(other->process)
                        : tr("Another program is still resuming a checkpoint."));
}

QCoro::Task<ResumeOutcome> ResumeFlow::resume(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout,
                                              Audience audience)
{
    ResumeOutcome outcome;
    outcome.subject = subjects::resume;
    outcome.checkpointID = checkpoint.id;
    if (m_operations.busy())
        co_return outcome;
    m_operations.setBusy(true);
    const auto idle = qScopeGuard([this, audience] {
        const PublishTogether group;
        m_operations.setBusy(false);
        if (audience == Audience::Window)
            resuming.set(std::nullopt);
    });
    if (audience == Audience::Window)
        resuming.set(ResumeProgress{checkpoint.id});
    const ResumeControl control = controlFor(audience);
    const LibraryLock turn = co_await turnToResume(control);
    if (audience == Audience::Window) {
        unplacedWindows.set({});
        resumeShortfall.set(std::nullopt);
    }
    RestoreReport &report = outcome.report;
    co_await reopen(checkpoint, choose, restoreLayout, &report, control);
    if (report.layout)
        keepUnplaced(checkpoint.windows.value_or(QList<SavedWindow>()), *report.layout);
    outcome.isDone = true;
    outcome.notice = RestoreSummary::text(report);
    const ResumeShortfall shortfall{checkpoint.id, report.outcome.unavailable, report.outcome.failures};
    if (audience == Audience::Window && shortfall != ResumeShortfall{checkpoint.id})
        resumeShortfall.set(shortfall);
    if (!report.outcome.failures.isEmpty())
        outcome.fail(tr("Could not open: ") + report.outcome.failures.join(", "));
    co_return outcome;
}

QCoro::Task<void> ResumeFlow::reopen(Checkpoint checkpoint, ChooseItems choose, bool restoreLayout,
                                     RestoreReport *report, ResumeControl control)
{
    const RestorePlan plan = co_await restorePlan(checkpoint);
    const ResumeSelection chosen = choose(plan);
    const QList<SavedWindow> windows = checkpoint.windows.value_or(QList<SavedWindow>());
    WorkspaceCapture::ReopenRequest request{.plan = plan, .appIDs = chosen.appIDs, .tabIDs = chosen.tabIDs};
    // What is open is found out while applications start.
    std::optional<QCoro::Task<WindowLayout::OpenPlaces>> looking;
    WindowLayout::SavedPlaces saved;
    if (restoreLayout) {
        saved = co_await WindowLayout::savedPlaces(windows, m_desktop);
        request.pathsByApp = WindowLayout::pathsByApp(windows, saved);
        looking = WindowLayout::openPlaces(windows, saved, m_desktop);
    }
    const WorkspaceCapture::ReopeningTools tools{m_desktop, m_openedPages, m_rules.exclusions().appIDs(), control};
    WorkspaceCapture::Reopened reopened = co_await WorkspaceCapture::reopen(request, tools);
    report->outcome = reopened.outcome;
    if (restoreLayout) {
        const QSet<QString> allowed = chosen.appIDs + idsOf(plan.activeApps);
        WindowLayout::LocationRequest places{.windows = windows, .allowedAppIDs = allowed};
        places.places = saved;
        places.open = co_await *looking;
        places.launchedAppIDs = reopened.startedAppIDs;
        places.control = control;
        reopened.opened.places = co_await restorePlaces(places, report);
    }
    control.awaits({});
    const QList<FailedStart> failed = co_await m_desktop.launcher->settle();
    WorkspaceCapture::withdraw(failed, reopened.opened, m_desktop.roles, report);
}

QCoro::Task<QList<SavedWindow>> ResumeFlow::restorePlaces(WindowLayout::LocationRequest places, RestoreReport *report)
{
    // Before the windows are moved, so that those that show them are there.
    const WindowLayout::LocationResult opened = co_await WindowLayout::restoreLocations(places, m_desktop);
    report->folders = opened.folders;
    report->viewerDocuments = opened.viewerDocuments;
    report->documents = opened.documents;
    report->outcome.failures += opened.failures;
    WindowLayout::RestoreRequest request{.windows = places.windows, .allowedAppIDs = places.allowedAppIDs};
    request.places = places.places;
    request.before = places.open;
    request.control = places.control;
    request.isStarting = [this](const QString &appID) { return m_desktop.launcher->isStarting(appID); };
    for (const SavedWindow &window : std::as_const(places.windows)) {
        const bool isStarting = places.launchedAppIDs.contains(window.appID) && !opened.failedIDs.contains(window.id);
        if (isStarting || opened.openedIDs.contains(window.id))
            request.awaitedIDs.insert(window.id);
    }
    report->layout = co_await WindowLayout::restore(request, m_desktop);
    places.windows.removeIf([&](const SavedWindow &window) { return !opened.openedIDs.contains(window.id); });
    co_return places.windows;
}

// Of these windows alone: what is known of others stays.
void ResumeFlow::keepUnplaced(const QList<SavedWindow> &windows, const RestoreResult &result)
{
    QList<SkippedWindow> skipped = result.skipped;
    QList<UnplacedWindow> unplaced = unplacedWindows();
    unplaced.removeIf([&](const UnplacedWindow &known) { return windows.contains(known.window); });
    for (const SavedWindow &window : windows) {
        const auto found = std::find_if(skipped.begin(), skipped.end(), [&](const SkippedWindow &entry) {
            return entry.appID == window.appID && entry.title == window.title;
        });
        if (found == skipped.end())
            continue;
        unplaced.append({window, found->reason});
        skipped.erase(found);
    }
    unplacedWindows.set(unplaced);
}

QCoro::Task<Outcome> ResumeFlow::placeRemainingWindows(const QList<SavedWindow> &windows)
{
    WindowLayout::RestoreRequest request{.windows = windows};
    for (const UnplacedWindow &unplaced : unplacedWindows()) {
        if (!windows.contains(unplaced.window))
            continue;
        request.onlyIDs.insert(unplaced.window.id);
        request.allowedAppIDs.insert(unplaced.window.appID);
    }
    return m_operations.carryOut(placeWindows(std::move(request)));
}

QCoro::Task<Outcome> ResumeFlow::placeWindows(WindowLayout::RestoreRequest request)
{
    Outcome outcome{.subject = subjects::resume};
    if (m_operations.busy() || request.onlyIDs.isEmpty())
        co_return outcome;
    m_operations.setBusy(true);
    const auto idle = qScopeGuard([this] { m_operations.setBusy(false); });
    const ResumeControl byNobody;
    const LibraryLock turn = co_await turnToResume(byNobody);
    const RestoreResult result = co_await WindowLayout::restore(request, m_desktop);
    if (!result.accessibilityRequired)
        keepUnplaced(request.windows, result);
    outcome.isDone = true;
    outcome.notice = RestoreSummary::text(result);
    co_return outcome;
}

void ResumeFlow::dismissShortfall()
{
    const PublishTogether group;
    resumeShortfall.set(std::nullopt);
    unplacedWindows.set({});
}

Capability ResumeFlow::windowPositioning() const
{
    return m_desktop.windowMover->availability();
}

void ResumeFlow::askWindowPositioning()
{
    m_desktop.windowMover->ask();
}

} // namespace ardeno
