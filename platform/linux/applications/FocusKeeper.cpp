// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/FocusKeeper.h"

#include "desktop/Workspace.h"

#include <QCoroTimer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr auto patienceForWindow = 10s; // Of an application that was started.
constexpr auto longestWatch = 60s;      // After the last application was started.
constexpr auto timeToFocus = 1s;        // After a window has appeared.
constexpr auto timeToGiveBack = 500ms;  // Until the window manager is asked again.
constexpr int mostTries = 6;
constexpr int mostTakes = 6;      // Of one window, which is then left with it.
constexpr auto timeToSwitch = 1s; // After the user has let go of a button or a key.
constexpr auto timeToLend = 2s;
constexpr auto focusInterval = 50ms;

QStringList appIDsOf(const QList<LiveWindow> &windows)
{
    QStringList appIDs;
    for (const LiveWindow &window : windows)
        appIDs.append(window.applicationID);
    return appIDs;
}

auto hasNumber(quint32 windowID)
{
    return [windowID](const LiveWindow &window) { return window.windowID == windowID; };
}

} // namespace

FocusKeeper::FocusKeeper(DesktopFocus session) : m_session(std::move(session))
{
    m_watch.setInterval(focusInterval);
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] { look(); });
}

QList<LiveWindow> FocusKeeper::windows() const
{
    return m_session.liveWindows().value_or(QList<LiveWindow>());
}

void FocusKeeper::expect(const QString &appID)
{
    if (!m_session.liveWindows || !m_session.activeWindow || !m_session.activate)
        return;
    const QList<LiveWindow> present = windows();
    if (!m_watch.isActive()) {
        m_focused = m_session.activeWindow();
        m_started.clear();
        m_takers.clear();
        m_before.clear();
        for (const LiveWindow &window : present)
            m_before.insert(window.windowID);
        m_isReturning = false;
        m_watch.start();
    }
    m_started.insert(appID);
    cancel(appID);
    m_expected.append({.appID = appID,
                       .windowsBefore = appIDsOf(present).count(appID),
                       .patience = QDeadlineTimer(patienceForWindow)});
    m_patience.setRemainingTime(longestWatch);
}

void FocusKeeper::setStarter(const QString &appID, const std::function<bool()> &isAtWork)
{
    for (Expected &expected : m_expected) {
        if (expected.appID == appID)
            expected.isStarting = isAtWork;
    }
}

void FocusKeeper::cancel(const QString &appID)
{
    m_expected.removeIf([&](const Expected &expected) { return expected.appID == appID; });
}

bool FocusKeeper::isStarting(const QString &appID) const
{
    return std::any_of(m_expected.begin(), m_expected.end(),
                       [&](const Expected &expected) { return expected.appID == appID && !expected.hasCome; });
}

QCoro::Task<bool> FocusKeeper::lend(quint32 window)
{
    if (!m_session.activate || !m_session.activeWindow)
        co_return false;
    m_isLent = true;
    m_session.activate(window);
    const QDeadlineTimer activation(timeToLend);
    while (m_session.activeWindow() != window && !activation.hasExpired())
        co_await QCoro::sleepFor(focusInterval);
    co_return m_session.activeWindow() == window;
}

void FocusKeeper::resume()
{
    m_isLent = false;
    m_tries = 0;
    if (m_focused != 0)
        giveBack();
}

QCoro::Task<void> FocusKeeper::settle()
{
    const QDeadlineTimer patience(patienceForWindow);
    while (m_watch.isActive() && !isSettled() && !patience.hasExpired())
        co_await QCoro::sleepFor(focusInterval);
    m_watch.stop();
    m_expected.clear();
}

void FocusKeeper::look()
{
    if (m_session.isUserSwitching && m_session.isUserSwitching())
        m_switching.setRemainingTime(timeToSwitch);
    if (m_isLent)
        return;
    const QList<LiveWindow> all = windows();
    const quint32 active = m_session.activeWindow();
    const auto taker = std::find_if(all.begin(), all.end(), hasNumber(active));
    if (active == m_focused)
        m_isReturning = false;
    else if (m_focused != 0 && taker != all.end())
        lost(*taker, all);
    if (!m_isReturning)
        notice(appIDsOf(all));
    if (m_patience.hasExpired())
        m_watch.stop();
}

// Whether the window is one of what was started: also of an application that shows windows of several ones, and what
// shows itself while an application starts.
bool FocusKeeper::isStarted(const LiveWindow &window, const QList<LiveWindow> &all) const
{
    if (m_started.contains(window.applicationID))
        return true;
    if (m_before.contains(window.windowID))
        return false;
    const auto isSibling = [&](const LiveWindow &other) {
        return m_started.contains(other.applicationID) && window.processID && other.processID == window.processID;
    };
    return window.applicationID.isEmpty() || WindowClass::isIdentifier(window.applicationID) ||
           std::any_of(all.begin(), all.end(), isSibling);
}

// A window that takes the focus again: the user has gone there, where anything says so, or it insists.
bool FocusKeeper::isChoice(quint32 window) const
{
    const int taken = m_takers.value(window);
    const bool mayBeUser = !m_session.isUserSwitching || !m_switching.hasExpired();
    return !m_isReturning && taken > 0 && (mayBeUser || taken >= mostTakes);
}

void FocusKeeper::lost(const LiveWindow &to, const QList<LiveWindow> &all)
{
    const bool hasGone = std::none_of(all.begin(), all.end(), hasNumber(m_focused));
    if (hasGone || !isStarted(to, all) || isChoice(to.windowID)) {
        m_focused = to.windowID; // The user has gone there.
        m_isReturning = false;
        return;
    }
    if (m_isReturning && !m_nextTry.hasExpired())
        return;
    if (!m_isReturning) {
        m_tries = 0;
        ++m_takers[to.windowID];
        for (Expected &expected : m_expected) // It may do so once more.
            expected.calm.setRemainingTime(timeToFocus);
    }
    giveBack();
}

void FocusKeeper::giveBack()
{
    m_isReturning = m_tries++ < mostTries;
    if (!m_isReturning) {
        m_focused = 0; // The window manager refuses.
        return;
    }
    m_nextTry.setRemainingTime(timeToGiveBack);
    m_session.activate(m_focused);
}

void FocusKeeper::notice(const QList<QString> &appIDs)
{
    for (Expected &expected : m_expected) {
        const qsizetype now = appIDs.count(expected.appID);
        const bool isHandedOver = now > 0 && !(expected.isStarting && expected.isStarting());
        if (expected.hasCome || (now <= expected.windowsBefore && !isHandedOver))
            continue;
        expected.hasCome = true;
        expected.calm.setRemainingTime(timeToFocus);
    }
    m_expected.removeIf([](const Expected &expected) {
        return expected.hasCome ? expected.calm.hasExpired() : expected.patience.hasExpired();
    });
}

} // namespace ardeno
