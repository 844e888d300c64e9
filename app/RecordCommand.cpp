// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"
#include "app/Output.h"
#include "app/StoreAccess.h"
#include "platform/MakeDesktop.h"
#include "support/Finish.h"

namespace ardeno {

namespace {

ExitStatus start(AppStore &store, const QCommandLineParser &parsed)
{
    takeTurn(store);
    if (store.recorder.recording()) {
        printError(u"A work session is being recorded already. Stop it before you start another one."_qs);
        return ExitStatus::Failed;
    }
    if (const auto issue = store.rules.exclusionsObstacle()) // Before a project is made for it.
        return report({.error = issue});
    const Outcome project = store.projects.createProject(parsed.value("project"), Audience::Caller);
    if (!project)
        return report(project);
    const CaptureRequest request{*project, parsed.value("title"), parsed.value("next"), store.drafts.includeBrowser()};
    Outcome outcome = finish(store.capture.startSession(request, Audience::Caller));
    outcome.remarks = project.remarks + outcome.remarks; // Both may have written.
    if (outcome)
        print(outcome.notice.value_or(QString()) + '\n' + uuidText(*outcome) + '\n');
    return report(outcome);
}

ExitStatus stop(AppStore &store)
{
    const Outcome outcome = finish(store.sessions.stop(Audience::Caller));
    if (!outcome.id) {
        printError(u"No work session is being recorded."_qs);
        return ExitStatus::Failed;
    }
    const Checkpoint *const saved = outcome ? store.library.checkpoint(*outcome) : nullptr;
    if (saved) {
        print(outcome.notice.value_or(QString()) + '\n' + uuidText(saved->id) + '\n');
        if (saved->recording)
            print(*saved->recording + '\n');
    }
    report(outcome);
    return saved ? ExitStatus::Done : ExitStatus::Failed; // The checkpoint counts, also without its video.
}

// Only an application that goes on can record; the one that is started serves the same command.
ExitStatus startInNewApplication(const QCommandLineParser &parsed)
{
    const Capability recorder = makeDesktop().screenRecorder->availability();
    if (!recorder.isAvailable())
        throw notAvailable(recorder.reason);
    BusClient::startApplication();
    QStringList arguments = {"record", "start", "--project", parsed.value("project")};
    for (const QString &option : {QString("title"), QString("next")}) {
        if (parsed.isSet(option))
            arguments << "--" + option << parsed.value(option);
    }
    return BusClient::run(arguments).value_or(ExitStatus::Failed);
}

} // namespace

ExitStatus runRecord(const QCommandLineParser &parsed)
{
    const QString verb = parsed.positionalArguments().first();
    const bool isStart = verb == "start";
    if (!isStart && (verb != "stop" || !parsed.optionNames().isEmpty())) {
        printError(u"Say “record start --project NAME” or “record stop”."_qs);
        return ExitStatus::WrongUsage;
    }
    if (isStart && parsed.value("project").trimmed().isEmpty()) {
        printError(u"Name the project: ardeno record start --project NAME."_qs);
        return ExitStatus::WrongUsage;
    }
    try {
        if (AppStore *const store = ApplicationStore::current())
            return isStart ? start(*store, parsed) : stop(*store);
        if (isStart)
            return startInNewApplication(parsed);
        printError(u"No work session is being recorded."_qs);
        return ExitStatus::Failed;
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
