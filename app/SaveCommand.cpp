// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"
#include "platform/MakeDesktop.h"

namespace ardeno {

namespace {

// What "save --json" prints.
struct SaveResult {
    QUuid id = {};
    QString project = {};
    QString title = {};
    qint64 apps = 0;
    qint64 tabs = 0;
    qint64 windows = 0;
    std::optional<QString> screenshot = {};
    QString captureNote = {};
    QString notice = {};

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &SaveResult::id},
            Field{"project", &SaveResult::project},
            Field{"title", &SaveResult::title},
            Field{"apps", &SaveResult::apps},
            Field{"tabs", &SaveResult::tabs},
            Field{"windows", &SaveResult::windows},
            Field{"screenshot", &SaveResult::screenshot},
            Field{"captureNote", &SaveResult::captureNote},
            Field{"notice", &SaveResult::notice},
        };
    }
};

SaveResult describe(const AppStore &store, const Checkpoint &checkpoint, const Outcome &outcome)
{
    const Project *const project = store.library.project(checkpoint.projectID.value_or(QUuid()));
    return {
        .id = checkpoint.id,
        .project = project ? project->name : QString(),
        .title = checkpoint.title,
        .apps = checkpoint.apps.size(),
        .tabs = checkpoint.tabs.size(),
        .windows = checkpoint.windows ? checkpoint.windows->size() : 0,
        .screenshot = checkpoint.screenshot,
        .captureNote = checkpoint.captureNote,
        .notice = outcome.notice.value_or(QString()),
    };
}

QString counted(qint64 number, const QString &noun)
{
    return QString::number(number) + ' ' + noun + (number == 1 ? "" : "s");
}

void printText(Output &out, const SaveResult &result)
{
    out.print(u"%1 “%2” in “%3”: %4, %5, %6.\n"_qs.arg(result.notice, oneLine(result.title), oneLine(result.project),
                                                       counted(result.apps, u"app"_qs), counted(result.tabs, u"tab"_qs),
                                                       counted(result.windows, u"window"_qs)));
    out.print(u"%1\n%2\n"_qs.arg(result.captureNote, uuidText(result.id)));
    if (result.screenshot)
        out.print(*result.screenshot + '\n');
}

bool wantsTabs(const QCommandLineParser &parsed, const AppStore &store)
{
    if (parsed.isSet("tabs") || parsed.isSet("no-tabs"))
        return parsed.isSet("tabs");
    return store.drafts.includeBrowser();
}

QCoro::Task<ExitStatus> save(CommandContext &context, const QCommandLineParser &parsed, Desktop &desktop)
{
    CommandStore access(context, desktop, CommandStore::Purpose::Write);
    AppStore &store = access.store();
    co_await takeTurn(context, store);
    if (const auto issue = store.rules.exclusionsObstacle()) // Before a project is made for it.
        co_return access.report({.error = issue});
    const Outcome project = store.projects.createProject(parsed.value("project"), Audience::Caller);
    if (!project)
        co_return access.report(project);
    const CaptureRequest request{*project, parsed.value("title"), parsed.value("next"), wantsTabs(parsed, store)};
    Outcome outcome = co_await store.capture.saveMoment(request, Audience::Caller);
    outcome.remarks = project.remarks + outcome.remarks; // Both may have written.
    const Checkpoint *const saved = outcome ? store.library.checkpoint(*outcome) : nullptr;
    if (!saved)
        co_return access.report(outcome);
    const SaveResult result = describe(store, *saved, outcome);
    if (parsed.isSet("json"))
        context.out.printJson(result);
    else
        printText(context.out, result);
    co_return access.report(outcome);
}

} // namespace

QCoro::Task<ExitStatus> runSave(CommandContext &context, const QCommandLineParser &parsed)
{
    if (parsed.value("project").trimmed().isEmpty()) {
        context.out.printError(u"Name the project: ardeno save --project NAME."_qs);
        co_return ExitStatus::WrongUsage;
    }
    if (parsed.isSet("tabs") && parsed.isSet("no-tabs")) {
        context.out.printError(u"Use either --tabs or --no-tabs."_qs);
        co_return ExitStatus::WrongUsage;
    }
    Desktop desktop = makeDesktop();
    require(desktop.screenCapture->availability());
    co_return co_await save(context, parsed, desktop);
}

} // namespace ardeno
