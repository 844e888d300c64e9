// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/ApplicationLauncher.h"

#include "platform/linux/common/DesktopLaunch.h"
#include "support/Failure.h"
#include "support/InWorker.h"

#include <QCoroTimer>

#include <QDeadlineTimer>
#include <QScopeGuard>

#include <chrono>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr auto lookInterval = 50ms;

} // namespace

ApplicationLauncher::ApplicationLauncher(std::shared_ptr<DesktopEntries> entries, SessionFocus focus)
    : m_entries(std::move(entries)), m_finder(focus.liveWindows), m_focus(std::move(focus))
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

std::function<void(pid_t)> ApplicationLauncher::startedFor(const DesktopEntry &entry)
{
    return [this, entry](pid_t process) {
        m_children.add(process, entry.name, [this, id = entry.id] { m_focus.cancel(id); });
        m_focus.setStarter(entry.id, [this, process] { return m_children.isRunning(process); });
    };
}

QCoro::Task<void> ApplicationLauncher::openApplication(QString appID, QStringList paths)
{
    const DesktopEntry found = entry(appID);
    m_focus.expect(found.id);
    DesktopLaunch::open(found, paths, startedFor(found));
    co_return;
}

QCoro::Task<void> ApplicationLauncher::openPath(QString path)
{
    const DesktopEntry found = entry(DesktopLaunch::handlerOfPath(path));
    const QStringList paths{path};
    co_await openApplication(found.id, paths);
}

QCoro::Task<void> ApplicationLauncher::reveal(QString path)
{
    const QString browser = DesktopLaunch::handlerOfPath("/");
    if (!browser.isEmpty() && isInstalled(browser))
        m_focus.expect(entry(browser).id);
    const auto work = [path] { DesktopLaunch::showInFileBrowser(path); };
    co_await inWorker(work);
}

QCoro::Task<void> ApplicationLauncher::openPages(QString appID, QStringList addresses)
{
    const DesktopEntry found = entry(appID.isEmpty() ? DesktopLaunch::handlerOfWeb() : appID);
    m_focus.expect(found.id);
    DesktopLaunch::openAddresses(found, addresses, startedFor(found));
    co_return;
}

QCoro::Task<bool> ApplicationLauncher::openInSavedWindow(QList<TabToReopen> tabs)
{
    constexpr auto timeToOpen = 200ms;
    if (tabs.isEmpty())
        co_return false;
    const QString appID = tabs.first().tab.browserID.value_or(QString());
    const auto window = co_await m_finder.find(tabs.first().tab);
    if (!window || !isInstalled(appID))
        co_return false;
    const DesktopEntry found = entry(appID);
    m_focus.expect(found.id);
    QStringList addresses;
    for (const TabToReopen &tab : std::as_const(tabs))
        addresses += tab.address;
    // A browser opens pages in the window that was active last.
    const auto giveBack = qScopeGuard([this] { m_focus.resume(); });
    const bool isActive = co_await m_focus.lend(*window);
    if (isActive) {
        pid_t started = 0;
        DesktopLaunch::openAddresses(found, addresses, [&](pid_t process) {
            startedFor(found)(process);
            started = process;
        });
        co_await waitForEnd(started);
        co_await QCoro::sleepFor(timeToOpen);
    }
    co_return isActive;
}

// A browser that hands pages to the one that runs ends at once.
QCoro::Task<void> ApplicationLauncher::waitForEnd(pid_t process)
{
    const QDeadlineTimer deadline(5s);
    while (m_children.isRunning(process) && !deadline.hasExpired())
        co_await QCoro::sleepFor(lookInterval);
}

QCoro::Task<QStringList> ApplicationLauncher::settle()
{
    co_await m_focus.settle();
    co_return m_children.takeFailures();
}

} // namespace ardeno
