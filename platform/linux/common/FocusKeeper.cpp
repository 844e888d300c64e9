// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/FocusKeeper.h"

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
constexpr auto timeToLend = 2s;
constexpr auto focusInterval = 50ms;

} // namespace

FocusKeeper::FocusKeeper(SessionFocus session) : m_session(std::move(session))
{
    m_watch.setInterval(focusInterval);
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] { look(); });
}

QHash<quint32, QString> FocusKeeper::windows() const
{
    QHash<quint32, QString> appIDs;
    for (const LiveWindow &window : m_session.liveWindows().value_or(QList<LiveWindow>()))
        appIDs.insert(window.windowID, window.applicationID);
    return appIDs;
}

void FocusKeeper::expect(const QString &appID)
{
    if (!m_session.liveWindows || !m_session.activeWindow || !m_session.activate)
        return;
    if (!m_watch.isActive()) {
        m_focused = m_session.activeWindow();
        m_started.clear();
        m_takers.clear();
        m_isReturning = false;
        m_watch.start();
    }
    m_started.insert(appID);
    cancel(appID);
    m_expected.append({.appID = appID,
                       .windowsBefore = windows().values().count(appID),
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
    if (m_isLent)
        return;
    const QHash<quint32, QString> appIDs = windows();
    const quint32 active = m_session.activeWindow();
    if (active == m_focused)
        m_isReturning = false;
    else if (m_focused != 0 && appIDs.contains(active))
        lost(active, appIDs.value(active));
    if (!m_isReturning)
        notice(appIDs.values());
    if (m_patience.hasExpired())
        m_watch.stop();
}

void FocusKeeper::lost(quint32 to, const QString &appID)
{
    const bool isGivenBack = !m_isReturning && m_takers.contains(to);
    if (!m_started.contains(appID) || isGivenBack) {
        m_focused = to; // The user has gone there.
        m_isReturning = false;
        return;
    }
    if (m_isReturning && !m_nextTry.hasExpired())
        return;
    if (!m_isReturning)
        m_tries = 0;
    m_takers.insert(to);
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
