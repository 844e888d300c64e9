// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QString>

namespace ardeno::WindowLayout {

// Where live windows were seen, and since when they have been there. Notices which of them the user moves: applications
// and window managers move windows, too, but nobody holds a button or a key for that.
class WindowTracker final {
public:
    WindowTracker() { m_clock.start(); }

    void look(const QList<MovableWindow> &live, const UserInput &input);
    // Between two looks, so that no hand is missed.
    void feel(const UserInput &input);

    bool isMovedByUser(quint32 windowID) const { return m_seen.value(windowID).isMovedByUser; }

    // Milliseconds: whether it has not changed for this long, and how long ago the application showed a window or
    // changed a title.
    bool isStill(quint32 windowID, qint64 howLong) const;
    qint64 timeSinceNews(const QString &appID) const;

private:
    struct TrackedWindow {
        QString title = {};
        WindowRect frame = {};
        qint64 since = 0; // Milliseconds of the clock.
        bool isMovedByUser = false;
    };

    bool isInHand(quint32 windowID, const WindowRect &from, const WindowRect &to) const;

    QElapsedTimer m_clock;
    QHash<quint32, TrackedWindow> m_seen;
    QHash<QString, qint64> m_news; // When an application last showed a window or changed a title.
    UserInput m_button;            // As it was when a button, or a key, was last down.
    UserInput m_key;
    qint64 m_buttonAt = -1; // Milliseconds of the clock; -1: never.
    qint64 m_keyAt = -1;
    qint64 m_lastLook = 0;
};

} // namespace ardeno::WindowLayout
