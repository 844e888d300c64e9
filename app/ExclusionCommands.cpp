// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"
#include "platform/MakeDesktop.h"

#include <algorithm>
#include <functional>

namespace ardeno {

namespace {

enum class RuleKind { App, Domain };

// "app" or "domain", the first argument of exclude and allow.
std::optional<RuleKind> ruleKind(Output &out, const QCommandLineParser &parsed)
{
    const QString kind = parsed.positionalArguments().first();
    if (kind == "app")
        return RuleKind::App;
    if (kind == "domain")
        return RuleKind::Domain;
    out.printError(u"Say “app ID” or “domain TEXT”, not “%1”."_qs.arg(kind));
    return std::nullopt;
}

// The application that is called so, among those that run and those that are installed.
std::optional<SavedApp> knownApp(Workspace &workspace, const QString &name)
{
    for (const RunningApplication &running : workspace.runningApplications()) {
        if (running.id == name)
            return SavedApp{running.id, running.name.isEmpty() ? running.id : running.name};
    }
    if (const auto installed = workspace.findApplication(name))
        return SavedApp{installed->id, installed->name.isEmpty() ? installed->id : installed->name};
    return std::nullopt;
}

using Change = std::function<Outcome(AppStore &)>;

// Changes the exclusions with the library locked, so that two commands at once lose nothing, and says what was done.
QCoro::Task<ExitStatus> change(CommandContext &context, Desktop &desktop, Change apply, QString done)
{
    CommandStore access(context, desktop, CommandStore::Purpose::Write);
    co_await takeTurn(context, access.store());
    const Outcome outcome = apply(access.store());
    if (outcome)
        context.out.print(done + '\n');
    co_return access.report(outcome);
}

QCoro::Task<ExitStatus> excludeApp(CommandContext &context, QString id)
{
    Desktop desktop = makeDesktop();
    const std::optional<SavedApp> known = knownApp(*desktop.workspace, id);
    const SavedApp app = known.value_or(SavedApp{id, id});
    const auto exclude = [&](AppStore &store) { return store.rules.excludeApp(app, Audience::Caller); };
    const QString done = u"%1 is left out of captures."_qs.arg(oneLine(app.name));
    const ExitStatus status = co_await change(context, desktop, exclude, done);
    if (!known && status == ExitStatus::Done)
        context.out.printError(
            u"No application “%1” is installed or running. Until there is one, windows of applications that are "
            "not installed are left out, since they may be its own."_qs.arg(id));
    co_return status;
}

QCoro::Task<ExitStatus> excludeDomain(CommandContext &context, QString text)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        throw Failure("Command", 3, u"Enter a valid website domain or an http/https URL."_qs);
    Desktop desktop = libraryOnlyDesktop();
    const auto exclude = [&](AppStore &store) { return store.rules.excludeDomain(text, Audience::Caller); };
    const QString done =
        u"The pages of %1 are left out of captures. Pictures and recordings still show one that can be seen; "
        "exclude the browser to hide it there, too."_qs.arg(*domain);
    co_return co_await change(context, desktop, exclude, done);
}

bool hasApp(const AppStore &store, const QString &id)
{
    return store.rules.exclusions().appIDs().contains(id);
}

QCoro::Task<ExitStatus> allow(CommandContext &context, RuleKind kind, QString text)
{
    Desktop desktop = libraryOnlyDesktop();
    // A rule can be named as it was typed or as it is stored.
    const QString rule = kind == RuleKind::App ? text : CaptureExclusions::domainFrom(text).value_or(text);
    const auto allowRule = [&](AppStore &store) -> Outcome {
        if (const auto issue = store.rules.exclusionsObstacle())
            return {.error = issue};
        const bool exists =
            kind == RuleKind::App ? hasApp(store, rule) : store.rules.exclusions().domains.contains(rule);
        if (!exists)
            return {.error = u"“%1” is not excluded."_qs.arg(text)};
        return kind == RuleKind::App ? store.rules.allowApp(rule, Audience::Caller)
                                     : store.rules.allowDomain(rule, Audience::Caller);
    };
    const QString done = u"%1 is no longer left out of captures."_qs.arg(oneLine(rule));
    co_return co_await change(context, desktop, allowRule, done);
}

} // namespace

QCoro::Task<ExitStatus> runExclude(CommandContext &context, const QCommandLineParser &parsed)
{
    const std::optional<RuleKind> kind = ruleKind(context.out, parsed);
    if (!kind)
        co_return ExitStatus::WrongUsage;
    const QString text = parsed.positionalArguments().last();
    if (*kind == RuleKind::App)
        co_return co_await excludeApp(context, text.trimmed());
    co_return co_await excludeDomain(context, text);
}

QCoro::Task<ExitStatus> runAllow(CommandContext &context, const QCommandLineParser &parsed)
{
    const std::optional<RuleKind> kind = ruleKind(context.out, parsed);
    if (!kind)
        co_return ExitStatus::WrongUsage;
    co_return co_await allow(context, *kind, parsed.positionalArguments().last().trimmed());
}

QCoro::Task<ExitStatus> runExclusions(CommandContext &context, const QCommandLineParser &parsed)
{
    Desktop desktop = libraryOnlyDesktop();
    if (parsed.isSet("start-over")) {
        const auto startOver = [](AppStore &store) { return store.rules.startExclusionsOver(Audience::Caller); };
        co_return co_await change(context, desktop, startOver, "Nothing is left out of captures any more.");
    }
    CommandStore access(context, desktop, CommandStore::Purpose::Read);
    if (const auto issue = access.store().rules.exclusionsObstacle())
        co_return access.report({.error = issue});
    const CaptureExclusions &exclusions = access.store().rules.exclusions();
    if (parsed.isSet("json")) {
        context.out.printJson(exclusions);
        co_return ExitStatus::Done;
    }
    QString text;
    for (const SavedApp &app : exclusions.apps)
        text += "app     " + oneLine(app.id) + "  " + oneLine(app.name) + '\n';
    for (const QString &domain : exclusions.domains)
        text += "domain  " + oneLine(domain) + '\n';
    context.out.print(text);
    co_return ExitStatus::Done;
}

} // namespace ardeno
