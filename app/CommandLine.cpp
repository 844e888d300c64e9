// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandLine.h"

#include "app/BusClient.h"
#include "app/CommandStore.h"
#include "app/EndSignals.h"

#include <algorithm>

namespace ardeno {

namespace {

QCommandLineOption jsonOption()
{
    return {"json", "Print exactly one JSON value."};
}

QCommandLineOption projectOption()
{
    return {"project", "The project's name.", "NAME"};
}

QList<Command> checkpointCommands()
{
    return {
        {"save",
         "--project NAME [--title TEXT] [--next TEXT] [--tabs|--no-tabs] [--json]",
         "Saves a checkpoint of the workspace into a project, which is created when there is none of that name.",
         {projectOption(),
          {"title", "The checkpoint's title.", "TEXT"},
          {"next", "The next small step.", "TEXT"},
          {"tabs", "With the open browser tabs."},
          {"no-tabs", "Without the browser tabs."},
          jsonOption()},
         0,
         runSave},
        {"list",
         "[--project NAME] [--json]",
         "Lists the projects and their checkpoints, newest first.",
         {projectOption(), jsonOption()},
         0,
         runList},
        {"show",
         "ID [--json]",
         "Shows one checkpoint; ID is its identifier or the beginning of it.",
         {jsonOption()},
         1,
         runShow},
        {"resume",
         "ID|--latest [--project NAME] [--dry-run] [--layout|--no-layout] [--json]",
         "Opens what a checkpoint had open and is missing now, and puts its windows back in their places.",
         {{"latest", "The newest checkpoint, of all projects or of one."},
          projectOption(),
          {"dry-run", "Only tell what would be opened."},
          {"layout", "With folders, documents and the places of windows; so it is without either option."},
          {"no-layout", "Only applications and pages."},
          jsonOption()},
         1,
         runResume,
         true},
    };
}

QList<Command> workCommands()
{
    return {
        {"record",
         "start --project NAME [--title TEXT] [--next TEXT] | stop",
         "Records the main display while you work; stopping saves a checkpoint with the recording.",
         {projectOption(), {"title", "The checkpoint's title.", "TEXT"}, {"next", "The next small step.", "TEXT"}},
         1,
         runRecord},
        {"quick-save", {}, "Opens the panel that saves a checkpoint, over whatever is in front.", {}, 0, runQuickSave},
    };
}

QList<Command> settingCommands()
{
    return {
        {"exclude",
         "app ID | domain TEXT",
         "Leaves an application or a website out of every capture.",
         {},
         2,
         runExclude},
        {"allow", "app ID | domain TEXT", "Takes an exclusion back.", {}, 2, runAllow},
        {"exclusions",
         "[--json] | --start-over",
         "Lists what is left out of captures.",
         {jsonOption(), {"start-over", "Where the list cannot be read: keeps it aside and starts without any."}},
         0,
         runExclusions},
        {"doctor",
         "[--json]",
         "Tells what this desktop session offers, and why not what it does not.",
         {jsonOption()},
         0,
         runDoctor},
    };
}

QString generalHelp()
{
    QString text = u"Ardeno saves checkpoints of your workspace, so that you can pick up where you left off.\n\n"
                   "Usage:\n  ardeno\n      Opens the window.\n"_qs;
    for (const Command &command : commands())
        text += u"  ardeno %1 %2\n      %3\n"_qs.arg(command.name, command.arguments, command.summary);
    text += u"  ardeno --background\n      Serves the commands over the session bus, without a window.\n"_qs;
    return text + u"  ardeno --version\n  ardeno --help\n  ardeno COMMAND --help\n"_qs;
}

ExitStatus wrongUsage(Output &out, const QString &problem, const QString &command = {})
{
    out.printError(problem);
    out.printError(command.isEmpty() ? u"See ardeno --help."_qs : u"See ardeno %1 --help."_qs.arg(command));
    return ExitStatus::WrongUsage;
}

// What is wrong with how many arguments there are; empty: nothing.
QString miscounted(const Command &command, const QCommandLineParser &parsed)
{
    const qsizetype given = parsed.positionalArguments().size();
    if (given == command.positionals || (given == 0 && command.positionalsAreOptional))
        return {};
    return u"ardeno %1 takes %2."_qs.arg(command.name,
                                         command.positionals == 0 ? u"options only"_qs : command.arguments);
}

// By the application that runs, which has the library, or else here.
QCoro::Task<ExitStatus> carryOut(CommandContext &context, const Command &command, QStringList arguments,
                                 const QCommandLineParser &parsed)
{
    if (!context.host) {
        const auto status = co_await BusClient::run(context.out, arguments);
        if (status)
            co_return *status;
    }
    co_return co_await command.run(context, parsed);
}

QCoro::Task<ExitStatus> runCommand(CommandContext &context, const Command &command, QStringList arguments)
{
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
    parser.addOptions(command.options);
    parser.addOption({"help", "Shows this help."});
    if (!parser.parse(arguments))
        co_return wrongUsage(context.out, parser.errorText(), command.name);
    if (parser.isSet("help")) {
        context.out.print(u"Usage: ardeno %1 %2\n%3\n"_qs.arg(command.name, command.arguments, command.summary));
        co_return ExitStatus::Done;
    }
    if (const QString problem = miscounted(command, parser); !problem.isEmpty())
        co_return wrongUsage(context.out, problem, command.name);
    ExitStatus status = ExitStatus::Failed;
    try {
        status = co_await carryOut(context, command, arguments, parser);
    } catch (const Failure &failure) {
        status = report(context.out, failure);
    }
    // As shells tell it.
    const int signal = context.host ? 0 : EndSignals::caught();
    co_return status == ExitStatus::Failed &&signal != 0 ? static_cast<ExitStatus>(128 + signal) : status;
}

} // namespace

const QList<Command> &commands()
{
    static const QList<Command> all = checkpointCommands() + workCommands() + settingCommands();
    return all;
}

QCoro::Task<ExitStatus> runCommandLine(CommandContext &context, QStringList arguments)
{
    const QString name = arguments.value(0);
    if (name == "--help" || name == "-h" || name == "help") {
        context.out.print(generalHelp());
        co_return ExitStatus::Done;
    }
    if (name == "--version") {
        context.out.print(u"Ardeno %1\n"_qs.arg(ARDENO_VERSION));
        co_return ExitStatus::Done;
    }
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [&](const Command &command) { return command.name == name; });
    if (found == commands().end())
        co_return wrongUsage(context.out, u"There is no command “%1”."_qs.arg(name));
    co_return co_await runCommand(context, *found, arguments);
}

} // namespace ardeno
