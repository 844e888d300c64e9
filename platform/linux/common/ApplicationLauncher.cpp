// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/ApplicationLauncher.h"

#include "platform/linux/common/DesktopLaunch.h"
#include "support/Failure.h"
#include "support/InWorker.h"

#include <QCoroTimer>

#include <QHash>

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;      // For the window of an application that was started.
constexpr auto timeToFocus = 500ms; // After a window has appeared.
constexpr auto timeToGiveBack = 300ms;
constexpr auto lookInterval = 50ms;

} // namespace

ApplicationLauncher::ApplicationLauncher(std::shared_ptr<DesktopEntries> entries, SessionFocus focus)
    : m_entries(std::move(entries)), m_focus(std::move(focus)), m_finder(m_focus.liveWindows)
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

// Called before an application is started, while the focus is still where the user left it.
void ApplicationLauncher::expect(const QString &appID)
{
    if (m_expected.isEmpty() && m_focus.activeWindow)
        m_focused = m_focus.activeWindow();
    m_expected.removeIf([&](const Expected &expected) { return expected.appID == appID; });
    m_expected.append({.appID = appID});
    m_patience.setRemainingTime(patience);
}

QCoro::Task<void> ApplicationLauncher::openApplication(QString appID, QStringList paths)
{
    const DesktopEntry found = entry(appID);
    expect(found.id);
    DesktopLaunch::open(found, paths, [&](pid_t process) { m_children.add(process, found.name); });
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
        expect(entry(browser).id);
    const auto work = [path] { DesktopLaunch::showInFileBrowser(path); };
    co_await inWorker(work);
}

QCoro::Task<void> ApplicationLauncher::openPages(QString appID, QStringList addresses)
{
    const DesktopEntry found = entry(appID.isEmpty() ? DesktopLaunch::handlerOfWeb() : appID);
    expect(found.id);
    DesktopLaunch::openAddresses(found, addresses, [&](pid_t process) { m_children.add(process, found.name); });
    co_return;
}

QCoro::Task<bool> ApplicationLauncher::openInSavedWindow(QList<TabToReopen> tabs)
{
    constexpr auto timeToActivate = 500ms;
    constexpr auto timeToOpen = 200ms;
    if (tabs.isEmpty() || !m_focus.activate)
        co_return false;
    const QString appID = tabs.first().tab.browserID.value_or(QString());
    const auto window = co_await m_finder.find(tabs.first().tab);
    if (!window || !isInstalled(appID))
        co_return false;
    const DesktopEntry found = entry(appID);
    expect(found.id);
    // A browser opens pages in the window that was active last.
    m_focus.activate(*window);
    const QDeadlineTimer activation(timeToActivate);
    while (m_focus.activeWindow() != *window && !activation.hasExpired())
        co_await QCoro::sleepFor(lookInterval);
    QStringList addresses;
    for (const TabToReopen &tab : std::as_const(tabs))
        addresses += tab.address;
    pid_t started = 0;
    if (m_focus.activeWindow() == *window) {
        DesktopLaunch::openAddresses(found, addresses, [&](pid_t process) {
            m_children.add(process, found.name);
            started = process;
        });
        co_await waitForEnd(started);
        co_await QCoro::sleepFor(timeToOpen);
    }
    if (m_focused != 0)
        m_focus.activate(m_focused);
    co_return started != 0;
}

// A browser that hands pages to the one that runs ends at once.
QCoro::Task<void> ApplicationLauncher::waitForEnd(pid_t process)
{
    const QDeadlineTimer deadline(5s);
    while (m_children.isRunning(process) && !deadline.hasExpired())
        co_await QCoro::sleepFor(lookInterval);
}

void ApplicationLauncher::noticeWindows(const QList<QString> &appIDs)
{
    for (Expected &expected : m_expected) {
        if (expected.hasWindow || !appIDs.contains(expected.appID))
            continue;
        expected.hasWindow = true;
        expected.calm.setRemainingTime(timeToFocus);
    }
    m_expected.removeIf([](const Expected &expected) { return expected.hasWindow && expected.calm.hasExpired(); });
}

void ApplicationLauncher::watchFocus()
{
    const auto live = m_focus.liveWindows ? m_focus.liveWindows() : std::nullopt;
    if (!live || !m_focus.activeWindow) {
        m_expected.clear();
        return;
    }
    QHash<quint32, QString> appIDs;
    for (const LiveWindow &window : *live)
        appIDs.insert(window.windowID, window.applicationID);
    const quint32 active = m_focus.activeWindow();
    if (m_focused != 0 && active != m_focused && appIDs.contains(active))
        giveFocusBack(active, appIDs.value(active));
    noticeWindows(appIDs.values());
}

void ApplicationLauncher::giveFocusBack(quint32 from, const QString &appID)
{
    const bool isExpected = std::any_of(m_expected.begin(), m_expected.end(),
                                        [&](const Expected &expected) { return expected.appID == appID; });
    if (m_givenBack.contains(from) && !m_givingBack.hasExpired())
        return; // The window manager has not got to it yet.
    if (!isExpected || m_givenBack.contains(from)) {
        m_focused = 0; // The user has gone there.
        return;
    }
    m_focus.activate(m_focused);
    m_givenBack.insert(from);
    m_givingBack.setRemainingTime(timeToGiveBack);
}

QCoro::Task<QStringList> ApplicationLauncher::settle()
{
    while (!m_expected.isEmpty() && !m_patience.hasExpired()) {
        watchFocus();
        co_await QCoro::sleepFor(lookInterval);
    }
    m_expected.clear();
    m_givenBack.clear();
    co_return m_children.takeFailures();
}

} // namespace ardeno
