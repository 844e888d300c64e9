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
    const CommandTurn turn(store);
    if (store.recording()) {
        printError(u"A work session is being recorded already. Stop it before you start another one."_qs);
        return ExitStatus::Failed;
    }
    const std::optional<QUuid> project = store.createProject(parsed.value("project"));
    if (!project)
        return reportError(store);
    const CaptureRequest request{*project, parsed.value("title"), parsed.value("next"), store.includeBrowser()};
    const std::optional<QUuid> id = finish(store.startSession(request));
    if (!id)
        return reportFailure(store);
    print(store.notice().value_or(QString()) + '\n' + uuidText(*id) + '\n');
    return ExitStatus::Done;
}

ExitStatus stop(AppStore &store)
{
    const CommandTurn turn(store);
    if (!store.recording()) {
        printError(u"No work session is being recorded."_qs);
        return ExitStatus::Failed;
    }
    finish(store.stop());
    if (store.error())
        printError(*store.error());
    const Checkpoint *const saved = store.notice() ? store.selected() : nullptr;
    if (!saved)
        return ExitStatus::Failed;
    print(*store.notice() + '\n' + uuidText(saved->id) + '\n');
    if (saved->recording)
        print(*saved->recording + '\n');
    return ExitStatus::Done;
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
