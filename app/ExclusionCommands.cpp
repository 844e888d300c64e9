// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"
#include "app/StoreAccess.h"
#include "platform/MakeDesktop.h"
#include "support/Finish.h"

#include <algorithm>
#include <functional>

namespace ardeno {

namespace {

enum class RuleKind { App, Domain };

// "app" or "domain", the first argument of exclude and allow.
std::optional<RuleKind> ruleKind(const QCommandLineParser &parsed)
{
    const QString kind = parsed.positionalArguments().first();
    if (kind == "app")
        return RuleKind::App;
    if (kind == "domain")
        return RuleKind::Domain;
    printError(u"Say “app ID” or “domain TEXT”, not “%1”."_qs.arg(kind));
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
ExitStatus change(Desktop &desktop, const Change &apply, const QString &done)
{
    LockedStore locked(desktop, LockedStore::Purpose::Write);
    takeTurn(locked.store());
    const Outcome outcome = apply(locked.store());
    if (outcome)
        print(done + '\n');
    return locked.report(outcome);
}

ExitStatus excludeApp(const QString &id)
{
    Desktop desktop = makeDesktop();
    const std::optional<SavedApp> known = knownApp(*desktop.workspace, id);
    const SavedApp app = known.value_or(SavedApp{id, id});
    const auto exclude = [&](AppStore &store) { return store.rules.excludeApp(app, Audience::Caller); };
    const ExitStatus status = change(desktop, exclude, u"%1 is left out of captures."_qs.arg(oneLine(app.name)));
    if (!known && status == ExitStatus::Done)
        printError(u"No application “%1” is installed or running. Until there is one, windows of applications that are "
                   "not installed are left out, since they may be its own."_qs.arg(id));
    return status;
}

ExitStatus excludeDomain(const QString &text)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        throw Failure("Command", 3, u"Enter a valid website domain or an http/https URL."_qs);
    Desktop desktop = libraryOnlyDesktop();
    const auto exclude = [&](AppStore &store) { return store.rules.excludeDomain(text, Audience::Caller); };
    return change(desktop, exclude,
                  u"The pages of %1 are left out of captures. Pictures and recordings still show one that can be seen; "
                  "exclude the browser to hide it there, too."_qs.arg(*domain));
}

bool hasApp(const AppStore &store, const QString &id)
{
    return store.rules.exclusions().appIDs().contains(id);
}

ExitStatus allow(RuleKind kind, const QString &text)
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
    return change(desktop, allowRule, u"%1 is no longer left out of captures."_qs.arg(oneLine(rule)));
}

} // namespace

ExitStatus runExclude(const QCommandLineParser &parsed)
{
    const std::optional<RuleKind> kind = ruleKind(parsed);
    if (!kind)
        return ExitStatus::WrongUsage;
    const QString text = parsed.positionalArguments().last();
    try {
        return *kind == RuleKind::App ? excludeApp(text.trimmed()) : excludeDomain(text);
    } catch (const Failure &failure) {
        return report(failure);
    }
}

ExitStatus runAllow(const QCommandLineParser &parsed)
{
    const std::optional<RuleKind> kind = ruleKind(parsed);
    if (!kind)
        return ExitStatus::WrongUsage;
    try {
        return allow(*kind, parsed.positionalArguments().last().trimmed());
    } catch (const Failure &failure) {
        return report(failure);
    }
}

ExitStatus runExclusions(const QCommandLineParser &parsed)
{
    try {
        Desktop desktop = libraryOnlyDesktop();
        if (parsed.isSet("start-over"))
            return change(
                desktop, [](AppStore &store) { return store.rules.startExclusionsOver(Audience::Caller); },
                "Nothing is left out of captures any more.");
        LockedStore locked(desktop, LockedStore::Purpose::Read);
        if (const auto issue = locked.store().rules.exclusionsObstacle())
            return locked.report({.error = issue});
        const CaptureExclusions &exclusions = locked.store().rules.exclusions();
        if (parsed.isSet("json")) {
            printJson(exclusions);
            return ExitStatus::Done;
        }
        QString text;
        for (const SavedApp &app : exclusions.apps)
            text += "app     " + oneLine(app.id) + "  " + oneLine(app.name) + '\n';
        for (const QString &domain : exclusions.domains)
            text += "domain  " + oneLine(domain) + '\n';
        print(text);
        return ExitStatus::Done;
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
