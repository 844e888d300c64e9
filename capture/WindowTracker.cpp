// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowTracker.h"

namespace ardeno::WindowLayout {

namespace {

// Milliseconds after which a move is the user's and no longer the application's.
constexpr qint64 timeToSettle = 400;

} // namespace

void WindowTracker::look(const QList<MovableWindow> &live)
{
    const qint64 now = m_clock.elapsed();
    for (const MovableWindow &window : live) {
        const auto known = m_seen.find(window.windowID);
        if (known == m_seen.end()) {
            m_seen.insert(window.windowID, {window.title, window.frame, now, false});
            m_news.insert(window.applicationID, now);
            continue;
        }
        if (known->title != window.title)
            m_news.insert(window.applicationID, now);
        known->title = window.title;
        if (known->frame == window.frame)
            continue;
        const bool isMoved = known->frame.x != window.frame.x || known->frame.y != window.frame.y;
        known->isMovedByUser = known->isMovedByUser || (isMoved && now - known->since >= timeToSettle);
        known->frame = window.frame;
        known->since = now;
    }
}

bool WindowTracker::isStill(quint32 windowID, qint64 howLong) const
{
    return m_clock.elapsed() - m_seen.value(windowID).since >= howLong;
}

qint64 WindowTracker::timeSinceNews(const QString &appID) const
{
    return m_clock.elapsed() - m_news.value(appID);
}

} // namespace ardeno::WindowLayout
