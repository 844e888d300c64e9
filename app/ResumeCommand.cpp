// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"
#include "platform/MakeDesktop.h"
#include "support/Text.h"

#include <QSet>

namespace ardeno {

namespace {

// What "resume --json" prints.
struct PlanResult {
    QStringList activeApps = {};
    QStringList appsToOpen = {};
    QStringList unavailableApps = {};
    QList<QUuid> activeTabs = {};
    QList<QUuid> tabsToOpen = {};
    QList<QUuid> duplicateTabs = {};
    QList<QUuid> unverifiedTabs = {};
    QList<QUuid> unavailableTabs = {};
    std::optional<QString> tabCheckWarning = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"activeApps", &PlanResult::activeApps},
            Field{"appsToOpen", &PlanResult::appsToOpen},
            Field{"unavailableApps", &PlanResult::unavailableApps},
            Field{"activeTabs", &PlanResult::activeTabs},
            Field{"tabsToOpen", &PlanResult::tabsToOpen},
            Field{"duplicateTabs", &PlanResult::duplicateTabs},
            Field{"unverifiedTabs", &PlanResult::unverifiedTabs},
            Field{"unavailableTabs", &PlanResult::unavailableTabs},
            Field{"tabCheckWarning", &PlanResult::tabCheckWarning},
        };
    }
};

struct OutcomeResult {
    qint64 openedApps = 0;
    qint64 openedTabs = 0;
    qint64 alreadyActive = 0;
    qint64 unavailable = 0;
    qint64 windowsRestored = 0;
    QList<SkippedWindow> windowsSkipped = {};
    qint64 folders = 0;
    qint64 documents = 0;
    QStringList failures = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"openedApps", &OutcomeResult::openedApps},
            Field{"openedTabs", &OutcomeResult::openedTabs},
            Field{"alreadyActive", &OutcomeResult::alreadyActive},
            Field{"unavailable", &OutcomeResult::unavailable},
            Field{"windowsRestored", &OutcomeResult::windowsRestored},
            Field{"windowsSkipped", &OutcomeResult::windowsSkipped},
            Field{"folders", &OutcomeResult::folders},
            Field{"documents", &OutcomeResult::documents},
            Field{"failures", &OutcomeResult::failures},
        };
    }
};

struct ResumeResult {
    PlanResult plan = {};
    std::optional<OutcomeResult> outcome = {}; // Absent when nothing was to be opened but only told.
    QString notice = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"plan", &ResumeResult::plan},
            Field{"outcome", &ResumeResult::outcome},
            Field{"notice", &ResumeResult::notice},
        };
    }
};

QStringList identifiers(const QList<SavedApp> &apps)
{
    QStringList ids;
    for (const SavedApp &app : apps)
        ids += app.id;
    return ids;
}

QList<QUuid> identifiers(const QList<SavedTab> &tabs)
{
    QList<QUuid> ids;
    for (const SavedTab &tab : tabs)
        ids += tab.id;
    return ids;
}

PlanResult describe(const RestorePlan &plan)
{
    return {
        .activeApps = identifiers(plan.activeApps),
        .appsToOpen = identifiers(plan.appsToOpen),
        .unavailableApps = identifiers(plan.unavailableApps),
        .activeTabs = identifiers(plan.activeTabs),
        .tabsToOpen = identifiers(plan.tabsToOpen),
        .duplicateTabs = identifiers(plan.duplicateTabs),
        .unverifiedTabs = identifiers(plan.unverifiedTabs),
        .unavailableTabs = identifiers(plan.unavailableTabs),
        .tabCheckWarning = plan.tabCheckWarning,
    };
}

OutcomeResult describe(const RestoreReport &report)
{
    const RestoreResult layout = report.layout.value_or(RestoreResult());
    return {
        .openedApps = report.outcome.openedApps,
        .openedTabs = report.outcome.openedTabs,
        .alreadyActive = report.outcome.alreadyActive,
        .unavailable = report.outcome.unavailable.size(),
        .windowsRestored = layout.restoredCount,
        .windowsSkipped = layout.skipped,
        .folders = report.folders,
        .documents = report.viewerDocuments + report.documents,
        .failures = report.outcome.failures,
    };
}

QString line(const QString &label, const QString &text)
{
    return label.leftJustified(16) + "  " + oneLine(text) + '\n';
}

QString lines(const QString &label, const QList<SavedApp> &apps)
{
    QString text;
    for (const SavedApp &app : apps)
        text += line(label, app.name);
    return text;
}

QString lines(const QString &label, const QList<SavedTab> &tabs)
{
    QString text;
    for (const SavedTab &tab : tabs)
        text += label.leftJustified(16) + "  " + oneLine(tab.title) + " <" + oneLine(tab.url) + ">\n";
    return text;
}

void printText(Output &out, const Checkpoint &checkpoint, const RestorePlan &plan)
{
    QString text = line("Checkpoint", checkpoint.displayName()) + lines("Running", plan.activeApps) +
                   lines("To open", plan.appsToOpen) + lines("Not installed", plan.unavailableApps) +
                   lines("Open page", plan.activeTabs) + lines("Page to open", plan.tabsToOpen) +
                   lines("Repeated page", plan.duplicateTabs) + lines("Unverified page", plan.unverifiedTabs) +
                   lines("Unusable page", plan.unavailableTabs);
    if (plan.tabCheckWarning)
        text += *plan.tabCheckWarning + '\n';
    out.print(text);
}

void printText(Output &out, const RestoreReport &report, const QString &notice)
{
    out.print(oneLine(notice) + '\n');
    const RestoreResult layout = report.layout.value_or(RestoreResult());
    for (const SkippedWindow &window : layout.skipped)
        out.print(
            u"Left alone: %1 “%2” (%3)\n"_qs.arg(oneLine(window.appID), oneLine(window.title), oneLine(window.reason)));
}

// The projects of this name; all without a name. Throws Failure when there is none.
QSet<QUuid> projectsNamed(const AppStore &store, const QString &name)
{
    QSet<QUuid> named;
    for (const Project &project : store.library.projects()) {
        if (name.isEmpty() || Text::equalNames(project.name, name))
            named.insert(project.id);
    }
    if (!name.isEmpty() && named.isEmpty())
        throw Failure("Command", 1, u"There is no project “%1”."_qs.arg(name));
    return named;
}

// The newest checkpoint, of all projects or of those of this name; throws Failure when there is none.
Checkpoint latestCheckpoint(const AppStore &store, const QString &projectName)
{
    const QSet<QUuid> projects = projectsNamed(store, projectName);
    const Checkpoint *newest = nullptr;
    for (const Checkpoint &checkpoint : store.library.checkpoints()) {
        const bool isCandidate = projects.contains(checkpoint.projectID.value_or(QUuid()));
        if (isCandidate && (!newest || newest->createdAt < checkpoint.createdAt))
            newest = &checkpoint;
    }
    if (newest)
        return *newest;
    throw Failure("Command", 1,
                  projectName.isEmpty() ? u"There is no checkpoint yet."_qs
                                        : u"There is no checkpoint in “%1”."_qs.arg(projectName));
}

Checkpoint chosenCheckpoint(const QCommandLineParser &parsed, const AppStore &store)
{
    if (parsed.isSet("latest"))
        return latestCheckpoint(store, parsed.value("project").trimmed());
    return findCheckpoint(store, parsed.positionalArguments().first());
}

QCoro::Task<ExitStatus> printPlan(Output &out, ResumeFlow &resuming, Checkpoint checkpoint, bool isText)
{
    const RestorePlan plan = co_await resuming.restorePlan(checkpoint);
    if (isText)
        printText(out, checkpoint, plan);
    else
        out.printJson(ResumeResult{.plan = describe(plan)});
    co_return ExitStatus::Done;
}

// The plan is told as soon as it is made, which may be some time after the command was given.
QCoro::Task<ResumeOutcome> resume(Output &out, ResumeFlow &resuming, Checkpoint checkpoint, bool withLayout,
                                  bool isText)
{
    ResumeResult result;
    const auto chooseMissing = [&](const RestorePlan &plan) {
        result.plan = describe(plan);
        if (isText)
            printText(out, checkpoint, plan);
        return ResumeSelection::missing(plan);
    };
    ResumeOutcome resumed = co_await resuming.restore(checkpoint, chooseMissing, withLayout, Audience::Caller);
    if (!resumed)
        co_return resumed;
    result.outcome = describe(resumed.report);
    result.notice = resumed.notice.value_or(QString());
    if (isText)
        printText(out, resumed.report, result.notice);
    else
        out.printJson(result);
    co_return resumed;
}

QCoro::Task<ExitStatus> resume(CommandContext &context, const QCommandLineParser &parsed, Desktop &desktop)
{
    CommandStore access(context, desktop, CommandStore::Purpose::Read);
    AppStore &store = access.store();
    if (!store.library.isLibraryRead())
        co_return ExitStatus::Failed;
    const bool isDry = parsed.isSet("dry-run");
    if (!isDry)
        co_await takeTurn(context, store); // What it waits for may change which checkpoint is meant.
    const Checkpoint checkpoint = chosenCheckpoint(parsed, store);
    access.release();
    const bool isText = !parsed.isSet("json");
    if (isDry)
        co_return co_await printPlan(context.out, store.resumes, checkpoint, isText);
    const ResumeOutcome outcome =
        co_await resume(context.out, store.resumes, checkpoint, !parsed.isSet("no-layout"), isText);
    co_return access.report(outcome);
}

// A sentence when the arguments contradict each other.
QString misuse(const QCommandLineParser &parsed)
{
    if (parsed.isSet("latest") != parsed.positionalArguments().isEmpty())
        return "Name one checkpoint: ardeno resume ID, or ardeno resume --latest.";
    if (parsed.isSet("project") && !parsed.isSet("latest"))
        return "Use --project together with --latest.";
    if (parsed.isSet("layout") && parsed.isSet("no-layout"))
        return "Use either --layout or --no-layout.";
    return {};
}

} // namespace

QCoro::Task<ExitStatus> runResume(CommandContext &context, const QCommandLineParser &parsed)
{
    const QString problem = misuse(parsed);
    if (!problem.isEmpty()) {
        context.out.printError(problem);
        co_return ExitStatus::WrongUsage;
    }
    Desktop desktop = makeDesktop();
    require(desktop.launcher->availability());
    co_return co_await resume(context, parsed, desktop);
}

} // namespace ardeno
