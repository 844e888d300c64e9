// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowTracker.h"

namespace ardeno::WindowLayout {

namespace {

// Milliseconds between a key or a button and what a window manager makes of it.
constexpr qint64 timeToFollow = 200;

bool contains(const WindowRect &frame, double x, double y)
{
    constexpr double edge = 10; // Windows are resized by what is just outside.
    return x >= frame.x - edge && x <= frame.maxX() + edge && y >= frame.y - edge && y <= frame.maxY() + edge;
}

} // namespace

void WindowTracker::feel(const UserInput &input)
{
    const qint64 now = m_clock.elapsed();
    if (input.isButtonDown) {
        m_button = input;
        m_buttonAt = now;
    }
    if (input.isKeyDown) {
        m_key = input;
        m_keyAt = now;
    }
}

bool WindowTracker::isInHand(quint32 windowID, const WindowRect &from, const WindowRect &to) const
{
    const auto isSince = [this](qint64 at) { return at >= 0 && at >= m_lastLook - timeToFollow; };
    const bool isHeld = contains(from, m_button.x, m_button.y) || contains(to, m_button.x, m_button.y);
    return (isSince(m_buttonAt) && isHeld) || (isSince(m_keyAt) && m_key.activeWindow == windowID);
}

void WindowTracker::look(const QList<MovableWindow> &live, const UserInput &input)
{
    feel(input);
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
        known->isMovedByUser = known->isMovedByUser || isInHand(window.windowID, known->frame, window.frame);
        known->frame = window.frame;
        known->since = now;
    }
    m_lastLook = now;
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
