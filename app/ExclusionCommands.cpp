// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Output.h"
#include "app/StoreAccess.h"
#include "platform/MakeDesktop.h"

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

// The application's name, from those that run and those that are installed.
std::optional<QString> knownName(Desktop &desktop, const QString &id)
{
    for (const RunningApplication &running : desktop.workspace->runningApplications()) {
        if (running.id == id)
            return running.name;
    }
    for (const InstalledApplication &installed : desktop.workspace->installedApplications()) {
        if (installed.id == id)
            return installed.name;
    }
    return std::nullopt;
}

ExitStatus failed(const AppStore &store, const QString &otherwise)
{
    printError(store.error().value_or(otherwise));
    return ExitStatus::Failed;
}

using Change = std::function<ExitStatus(AppStore &)>;

// Changes the exclusions with the library locked, so that two commands at once lose nothing.
ExitStatus change(Desktop &desktop, const Change &apply)
{
    LockedStore locked(desktop, LockedStore::Purpose::Write);
    const CommandTurn turn(locked.store());
    return apply(locked.store());
}

ExitStatus excludeApp(const QString &id)
{
    Desktop desktop = makeDesktop();
    const std::optional<QString> name = knownName(desktop, id);
    if (!name)
        printError(u"No application “%1” is installed or running; it is left out should there be one."_qs.arg(id));
    const SavedApp app{id, name && !name->isEmpty() ? *name : id};
    return change(desktop, [&](AppStore &store) {
        if (!store.excludeApp(app))
            return failed(store, {});
        print(u"%1 is left out of captures.\n"_qs.arg(oneLine(app.name)));
        return ExitStatus::Done;
    });
}

ExitStatus excludeDomain(const QString &text)
{
    const std::optional<QString> domain = CaptureExclusions::domainFrom(text);
    if (!domain)
        throw Failure("Command", 3, u"Enter a valid website domain or an http/https URL."_qs);
    Desktop desktop = libraryOnlyDesktop();
    return change(desktop, [&](AppStore &store) {
        if (!store.excludeDomain(text))
            return failed(store, {});
        print(u"%1 is left out of captures.\n"_qs.arg(*domain));
        return ExitStatus::Done;
    });
}

bool hasApp(const AppStore &store, const QString &id)
{
    return store.exclusions().appIDs().contains(id);
}

ExitStatus allow(RuleKind kind, const QString &text)
{
    Desktop desktop = libraryOnlyDesktop();
    // A rule can be named as it was typed or as it is stored.
    const QString rule = kind == RuleKind::App ? text : CaptureExclusions::domainFrom(text).value_or(text);
    return change(desktop, [&](AppStore &store) {
        const bool exists = kind == RuleKind::App ? hasApp(store, rule) : store.exclusions().domains.contains(rule);
        if (!exists)
            return failed(store, u"“%1” is not excluded."_qs.arg(text));
        if (!(kind == RuleKind::App ? store.allowApp(rule) : store.allowDomain(rule)))
            return failed(store, {});
        print(u"%1 is no longer left out of captures.\n"_qs.arg(oneLine(rule)));
        return ExitStatus::Done;
    });
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
        LockedStore locked(desktop, LockedStore::Purpose::Read);
        const CaptureExclusions &exclusions = locked.store().exclusions();
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
