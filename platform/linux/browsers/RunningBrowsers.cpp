// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/RunningBrowsers.h"

#include "desktop/Workspace.h"

#include <QMap>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

constexpr double timeToShowWindow = 15; // Seconds.

// Whether it has been started on this desktop and may have yet to show a window.
bool isStarting(const BrowserProcess &process)
{
    return Date::now().seconds - process.startedAt.seconds < timeToShowWindow &&
           process.facts.variable("DISPLAY") == qgetenv("DISPLAY");
}

Browser browserNamed(const QString &id, const QString &windowsName, const KnownBrowser &known)
{
    Browser browser{id, known.name, known.family.value_or(BrowserFamily::Chromium), known.id};
    if (id != known.id && !windowsName.isEmpty())
        browser.name = windowsName;
    return browser;
}

// What the windows of a process are called. Sites that are installed like applications have names of their own among
// them; most windows are the browser's.
Browser browserOf(const BrowserProcess &process, const QList<LiveWindow> &windows)
{
    QMap<QString, qsizetype> counts;
    QMap<QString, QString> names;
    QString id = process.browser.id;
    for (const LiveWindow &window : windows) {
        const bool isUnnamed = window.applicationID.isEmpty() || WindowClass::isIdentifier(window.applicationID);
        const QString own = isUnnamed ? process.browser.id : window.applicationID;
        names[own] = window.applicationName;
        if (++counts[own] > counts.value(id))
            id = own;
    }
    return browserNamed(id, names.value(id), process.browser);
}

RunningBrowser &entryFor(const Browser &browser, QList<RunningBrowser> &browsers)
{
    const auto found = std::find_if(browsers.begin(), browsers.end(),
                                    [&](const RunningBrowser &other) { return other.browser.id == browser.id; });
    return found == browsers.end() ? browsers.emplaceBack(RunningBrowser{.browser = browser}) : *found;
}

void addUnreadable(const QList<LiveWindow> &windows, QList<RunningBrowser> &browsers)
{
    for (const LiveWindow &window : windows) {
        const QString id = window.applicationID;
        const KnownBrowser known = BrowserIdentities::named(id).value_or(KnownBrowser{id, id});
        entryFor(browserNamed(id, window.applicationName, known), browsers).isReadWhole = false;
    }
}

} // namespace

QList<LiveWindow> RunningBrowsers::windowsOf(const BrowserProcess &process, const QString &browserID,
                                             QList<LiveWindow> live)
{
    live.removeIf([&](const LiveWindow &window) {
        return window.processID ? *window.processID != process.id : window.applicationID != browserID;
    });
    return live;
}

QList<RunningBrowser> RunningBrowsers::all(const std::optional<QList<LiveWindow>> &live, const QString &processFolder)
{
    QList<RunningBrowser> browsers;
    QList<LiveWindow> others = live.value_or(QList<LiveWindow>());
    others.removeIf([](const LiveWindow &window) { return !window.isBrowser || window.applicationID.isEmpty(); });
    for (const BrowserProcess &process : BrowserProcesses::running(processFolder)) {
        const QList<LiveWindow> own = windowsOf(process, process.browser.id, live.value_or(QList<LiveWindow>()));
        // A browser without any window on this desktop belongs to another one, or only serves in the background.
        if (live && own.isEmpty() && !isStarting(process))
            continue;
        entryFor(browserOf(process, own), browsers).processes.append(process);
        others.removeIf([&](const LiveWindow &window) { return own.contains(window); });
    }
    addUnreadable(others, browsers);
    return browsers;
}

} // namespace ardeno
