// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/ApplicationLauncher.h"

#include "platform/linux/files/SlowWork.h"
#include "support/Failure.h"

#include <QCoroTimer>

#include <QDeadlineTimer>
#include <QScopeGuard>

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr auto lookInterval = 50ms;
constexpr auto timeToShow = 8s;    // Its first window, before it is asked for a further one.
constexpr auto timeToLaunch = 10s; // A file browser may have to be started, a program come from a slow disk.

// What a browser is told, with windows of it open or not. Firefox makes a window for several pages at once, and opens a
// single one in the last window.
QStringList pageWords(BrowserFamily family, const QStringList &addresses, PagePlace place, bool isOpen)
{
    const bool isNew = place == PagePlace::NewWindow;
    if (family != BrowserFamily::Firefox)
        return isNew ? QStringList{"--new-window"} + addresses : addresses;
    if (!isOpen || (isNew && addresses.size() > 1))
        return addresses;
    QStringList words;
    for (const QString &address : addresses)
        words += {isNew ? "--new-window" : "--new-tab", address};
    return words;
}

// The desktop file of what opens things like this one.
QCoro::Task<QString> handlerOf(const QString &path)
{
    const auto work = [path] { return DesktopLaunch::handlerOfPath(path); };
    return SlowWork::withinDeadline(work, timeToLaunch, SlowWork::Kind::Launches);
}

} // namespace

ApplicationLauncher::ApplicationLauncher(std::shared_ptr<DesktopEntries> entries, DesktopFocus focus)
    : m_entries(std::move(entries)),
      m_liveWindows(focus.liveWindows),
      m_finder(focus.liveWindows),
      m_focus(std::move(focus))
{
}

bool ApplicationLauncher::isInstalled(const QString &appID)
{
    return !appID.isEmpty() && m_entries->find(appID).has_value();
}

DesktopEntry ApplicationLauncher::entry(const QString &appID)
{
    const auto found = m_entries->find(appID);
    if (appID.isEmpty() || !found)
        throw Failure("Launch", 2, "It is not installed.");
    return *found;
}

bool ApplicationLauncher::areRunning(const DesktopLaunch::Processes &processes) const
{
    return std::any_of(processes.begin(), processes.end(),
                       [this](pid_t process) { return m_children.isRunning(process); });
}

// Some applications take one thing at a time and are started once for each, in their order.
void ApplicationLauncher::watch(const DesktopEntry &entry, const QStringList &contents,
                                const DesktopLaunch::Processes &processes)
{
    const bool isOneEach = processes.size() == contents.size();
    for (qsizetype i = 0; i < processes.size(); ++i) {
        const FailedStart ifFails{entry.id, entry.name, isOneEach ? QStringList{contents[i]} : contents};
        m_children.add(processes[i], ifFails, [this, id = entry.id] { m_focus.cancel(id); });
    }
}

QCoro::Task<DesktopLaunch::Processes> ApplicationLauncher::launch(DesktopEntry entry, QStringList contents,
                                                                  std::function<DesktopLaunch::Processes()> work)
{
    m_focus.expect(entry.id);
    m_focus.setStarter(entry.id, [] { return true; });
    try {
        const auto processes = co_await SlowWork::withinDeadline(work, timeToLaunch, SlowWork::Kind::Launches);
        watch(entry, contents, processes);
        m_focus.setStarter(entry.id, [this, processes] { return areRunning(processes); });
        co_return processes;
    } catch (const Failure &) {
        m_focus.cancel(entry.id);
        throw;
    }
}

QCoro::Task<void> ApplicationLauncher::openApplication(QString appID, QStringList paths)
{
    const DesktopEntry found = entry(appID);
    if (paths.isEmpty()) {
        const auto work = [found, paths] { return DesktopLaunch::open(found, paths); };
        co_await launch(found, paths, work);
    }
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const QStringList path{paths[i]};
        const qsizetype before = windowsOf(found.id);
        const auto work = [found, path] { return DesktopLaunch::openSeparately(found, path.first()); };
        const auto started = co_await launch(found, path, work);
        // What shares a process must be there before it can be asked for a further window.
        if (before == 0 && i + 1 < paths.size())
            co_await waitForWindow(found.id, before, started, timeToShow);
    }
}

QCoro::Task<void> ApplicationLauncher::openPath(QString path)
{
    const QString handler = co_await handlerOf(path);
    const DesktopEntry found = entry(handler);
    const QStringList paths{path};
    co_await openApplication(found.id, paths);
}

QCoro::Task<void> ApplicationLauncher::reveal(QString path)
{
    const QString root = "/";
    const QString browser = co_await handlerOf(root);
    if (!browser.isEmpty() && isInstalled(browser))
        m_focus.expect(entry(browser).id);
    const auto work = [path] {
        DesktopLaunch::showInFileBrowser(path);
        return true;
    };
    co_await SlowWork::withinDeadline(work, timeToLaunch, SlowWork::Kind::Launches);
}

QCoro::Task<DesktopLaunch::Processes> ApplicationLauncher::launchPages(const DesktopEntry &entry,
                                                                       const QStringList &addresses, PagePlace place)
{
    const bool isOpen = windowsOf(entry.id) > 0;
    const auto work = [entry, addresses, place, isOpen] {
        const auto browser = DesktopLaunch::browserOf(entry);
        const auto family = browser ? browser->family : std::nullopt;
        return DesktopLaunch::openAddresses(entry, family ? pageWords(*family, addresses, place, isOpen) : addresses);
    };
    return launch(entry, addresses, work);
}

QCoro::Task<void> ApplicationLauncher::openPages(QString appID, QStringList addresses, PagePlace place)
{
    const DesktopEntry found = entry(appID.isEmpty() ? DesktopLaunch::handlerOfWeb() : appID);
    const qsizetype before = windowsOf(found.id);
    const auto started = co_await launchPages(found, addresses, place);
    // What is asked of a browser that is only starting may end up in its first window.
    if (place == PagePlace::NewWindow && !appID.isEmpty()) {
        const auto patience = before > 0 ? 5s : 15s;
        co_await waitForWindow(found.id, before, started, patience);
    }
}

qsizetype ApplicationLauncher::windowsOf(const QString &appID) const
{
    const auto live = m_liveWindows ? m_liveWindows() : std::nullopt;
    const QList<LiveWindow> windows = live.value_or(QList<LiveWindow>());
    return std::count_if(windows.begin(), windows.end(),
                         [&](const LiveWindow &window) { return window.applicationID == appID && !window.isDialog; });
}

QCoro::Task<void> ApplicationLauncher::waitForWindow(QString appID, qsizetype before, DesktopLaunch::Processes started,
                                                     std::chrono::seconds patience)
{
    const QDeadlineTimer deadline(patience);
    // What hands over to a running browser ends before there is a window.
    while (windowsOf(appID) <= before && (before > 0 || areRunning(started)) && !deadline.hasExpired())
        co_await QCoro::sleepFor(lookInterval);
}

QCoro::Task<bool> ApplicationLauncher::openInSavedWindow(quint32 windowID, QList<TabToReopen> tabs)
{
    constexpr auto timeToOpen = 200ms;
    const QString appID = tabs.isEmpty() ? QString() : tabs.first().tab.browserID.value_or(QString());
    if (!isInstalled(appID))
        co_return false;
    const DesktopEntry found = entry(appID);
    QStringList addresses;
    for (const TabToReopen &tab : std::as_const(tabs))
        addresses += tab.address;
    // A browser opens pages in the window that was active last.
    const auto giveBack = qScopeGuard([this] { m_focus.resume(); });
    const bool isActive = co_await m_focus.lend(windowID);
    if (isActive) {
        const auto started = co_await launchPages(found, addresses, PagePlace::LastWindow);
        co_await waitForEnd(started);
        co_await QCoro::sleepFor(timeToOpen);
    }
    co_return isActive;
}

// A browser that hands pages to the one that runs ends at once.
QCoro::Task<void> ApplicationLauncher::waitForEnd(DesktopLaunch::Processes processes)
{
    const QDeadlineTimer deadline(5s);
    while (areRunning(processes) && !deadline.hasExpired())
        co_await QCoro::sleepFor(lookInterval);
}

QCoro::Task<QList<FailedStart>> ApplicationLauncher::settle()
{
    co_await m_focus.settle();
    co_return m_children.takeFailures();
}

} // namespace ardeno
