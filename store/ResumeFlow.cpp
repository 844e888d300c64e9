// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/LocationRestore.h"
#include "capture/Reopening.h"
#include "capture/WindowRestore.h"
#include "store/AppStore.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace ardeno {

QCoro::Task<RestorePlan> AppStore::restorePlan(Checkpoint checkpoint)
{
    const WorkspaceCapture::ReopeningTools tools{m_desktop, m_openedPages, exclusions().appIDs()};
    co_return co_await WorkspaceCapture::presentPlan(checkpoint.apps, checkpoint.tabs, tools);
}

QCoro::Task<ResumeOutcome> AppStore::restore(RestorePlan plan, QSet<QString> selectedAppIDs, QSet<QUuid> selectedTabIDs,
                                             QList<SavedWindow> windows, bool restoreLayout, Audience audience)
{
    return carryOut(resume(std::move(plan), std::move(selectedAppIDs), std::move(selectedTabIDs), std::move(windows),
                           restoreLayout),
                    audience);
}

QCoro::Task<ResumeOutcome> AppStore::resume(RestorePlan plan, QSet<QString> selectedAppIDs, QSet<QUuid> selectedTabIDs,
                                            QList<SavedWindow> windows, bool restoreLayout)
{
    ResumeOutcome outcome;
    outcome.subject = subjects::resume;
    if (busy())
        co_return outcome;
    RestoreReport &report = outcome.report;
    unplacedWindows.set({});
    busy.set(true);
    const auto idle = qScopeGuard([this] { busy.set(false); });
    WorkspaceCapture::ReopenRequest request{.plan = plan, .appIDs = selectedAppIDs, .tabIDs = selectedTabIDs};
    // What is open is found out while applications start.
    std::optional<QCoro::Task<WindowLayout::OpenPlaces>> looking;
    WindowLayout::SavedPlaces saved;
    if (restoreLayout) {
        saved = co_await WindowLayout::savedPlaces(windows, m_desktop);
        request.pathsByApp = WindowLayout::pathsByApp(windows, saved);
        looking = WindowLayout::openPlaces(windows, saved, m_desktop);
    }
    const WorkspaceCapture::ReopeningTools tools{m_desktop, m_openedPages, exclusions().appIDs()};
    const WorkspaceCapture::Reopened reopened = co_await WorkspaceCapture::reopen(request, tools);
    report.outcome = reopened.outcome;
    if (restoreLayout) {
        const QSet<QString> allowed = selectedAppIDs + idsOf(plan.activeApps);
        WindowLayout::LocationRequest places{.windows = windows, .allowedAppIDs = allowed};
        places.places = saved;
        places.open = co_await *looking;
        places.launchedAppIDs = reopened.startedAppIDs;
        co_await restorePlaces(places, &report);
        keepUnplaced(windows, *report.layout);
    }
    const QStringList ended = co_await m_desktop.launcher->settle();
    for (const QString &name : ended)
        report.outcome.failures += tr("%1 (it ended with an error)").arg(name);
    outcome.isDone = true;
    outcome.notice = RestoreSummary::text(report);
    if (!report.outcome.failures.isEmpty())
        outcome.fail(tr("Could not open: ") + report.outcome.failures.join(", "));
    co_return outcome;
}

QCoro::Task<void> AppStore::restorePlaces(WindowLayout::LocationRequest places, RestoreReport *report)
{
    // Before the windows are moved, so that those that show them are there.
    const WindowLayout::LocationResult opened = co_await WindowLayout::restoreLocations(places, m_desktop);
    report->folders = opened.folders;
    report->viewerDocuments = opened.viewerDocuments;
    report->documents = opened.documents;
    report->outcome.failures += opened.failures;
    WindowLayout::RestoreRequest request{.windows = places.windows, .allowedAppIDs = places.allowedAppIDs};
    request.isStarting = [this](const QString &appID) { return m_desktop.launcher->isStarting(appID); };
    for (const SavedWindow &window : std::as_const(places.windows)) {
        const bool isStarting = places.launchedAppIDs.contains(window.appID) && !opened.failedIDs.contains(window.id);
        if (isStarting || opened.openedIDs.contains(window.id))
            request.awaitedIDs.insert(window.id);
    }
    report->layout = co_await WindowLayout::restore(request, *m_desktop.windowMover, *m_desktop.windowServer);
}

void AppStore::keepUnplaced(const QList<SavedWindow> &windows, const RestoreResult &result)
{
    QList<SkippedWindow> skipped = result.skipped;
    QList<UnplacedWindow> unplaced;
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

QCoro::Task<Outcome> AppStore::placeRemainingWindows(const QList<SavedWindow> &windows)
{
    WindowLayout::RestoreRequest request{.windows = windows};
    for (const UnplacedWindow &unplaced : unplacedWindows()) {
        if (!windows.contains(unplaced.window))
            continue;
        request.onlyIDs.insert(unplaced.window.id);
        request.allowedAppIDs.insert(unplaced.window.appID);
    }
    return carryOut(placeWindows(std::move(request)));
}

QCoro::Task<Outcome> AppStore::placeWindows(WindowLayout::RestoreRequest request)
{
    Outcome outcome{.subject = subjects::resume};
    if (busy() || request.onlyIDs.isEmpty())
        co_return outcome;
    busy.set(true);
    const auto idle = qScopeGuard([this] { busy.set(false); });
    const RestoreResult result =
        co_await WindowLayout::restore(request, *m_desktop.windowMover, *m_desktop.windowServer);
    if (!result.accessibilityRequired)
        keepUnplaced(request.windows, result);
    outcome.isDone = true;
    outcome.notice = RestoreSummary::text(result);
    co_return outcome;
}

Capability AppStore::windowPositioning() const
{
    return m_desktop.windowMover->availability();
}

void AppStore::askWindowPositioning()
{
    m_desktop.windowMover->ask();
}

} // namespace ardeno
