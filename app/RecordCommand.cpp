// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"
#include "app/CommandStore.h"
#include "platform/MakeDesktop.h"

namespace ardeno {

namespace {

QCoro::Task<ExitStatus> start(CommandContext &context, const QCommandLineParser &parsed)
{
    AppStore &store = context.host->store;
    co_await takeTurn(context, store);
    if (store.recorder.recording()) {
        context.out.printError(u"A work session is being recorded already. Stop it before you start another one."_qs);
        co_return ExitStatus::Failed;
    }
    if (const auto issue = store.rules.exclusionsObstacle()) // Before a project is made for it.
        co_return report(context.out, {.error = issue});
    const Outcome project = store.projects.createProject(parsed.value("project"), Audience::Caller);
    if (!project)
        co_return report(context.out, project);
    const CaptureRequest request{*project, parsed.value("title"), parsed.value("next"), store.drafts.includeBrowser()};
    Outcome outcome = co_await store.capture.startSession(request, Audience::Caller);
    outcome.remarks = project.remarks + outcome.remarks; // Both may have written.
    if (outcome)
        context.out.print(outcome.notice.value_or(QString()) + '\n' + uuidText(*outcome) + '\n');
    co_return report(context.out, outcome);
}

QCoro::Task<ExitStatus> stop(CommandContext &context)
{
    AppStore &store = context.host->store;
    const Outcome outcome = co_await store.sessions.stop(Audience::Caller);
    if (!outcome.id) {
        context.out.printError(u"No work session is being recorded."_qs);
        co_return ExitStatus::Failed;
    }
    const Checkpoint *const saved = outcome ? store.library.checkpoint(*outcome) : nullptr;
    if (saved) {
        context.out.print(outcome.notice.value_or(QString()) + '\n' + uuidText(saved->id) + '\n');
        if (saved->recording)
            context.out.print(*saved->recording + '\n');
    }
    report(context.out, outcome);
    co_return saved ? ExitStatus::Done : ExitStatus::Failed; // The checkpoint counts, also without its video.
}

// Only an application that goes on can record; the one that is started serves the same command.
QCoro::Task<ExitStatus> startInNewApplication(CommandContext &context, const QCommandLineParser &parsed)
{
    require(makeDesktop().screenRecorder->availability());
    BusClient::startApplication();
    QStringList arguments = {"record", "start", "--project", parsed.value("project")};
    for (const QString &option : {QString("title"), QString("next")}) {
        if (parsed.isSet(option))
            arguments << "--" + option << parsed.value(option);
    }
    const std::optional<ExitStatus> status = co_await BusClient::run(context.out, arguments);
    co_return status.value_or(ExitStatus::Failed);
}

} // namespace

QCoro::Task<ExitStatus> runRecord(CommandContext &context, const QCommandLineParser &parsed)
{
    const QString verb = parsed.positionalArguments().first();
    const bool isStart = verb == "start";
    if (!isStart && (verb != "stop" || !parsed.optionNames().isEmpty())) {
        context.out.printError(u"Say “record start --project NAME” or “record stop”."_qs);
        co_return ExitStatus::WrongUsage;
    }
    if (isStart && parsed.value("project").trimmed().isEmpty()) {
        context.out.printError(u"Name the project: ardeno record start --project NAME."_qs);
        co_return ExitStatus::WrongUsage;
    }
    if (isStart && context.host)
        co_return co_await start(context, parsed);
    if (isStart)
        co_return co_await startInNewApplication(context, parsed);
    if (context.host)
        co_return co_await stop(context);
    context.out.printError(u"No work session is being recorded."_qs);
    co_return ExitStatus::Failed;
}

} // namespace ardeno
