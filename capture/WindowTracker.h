// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QString>

namespace ardeno::WindowLayout {

// Where live windows were seen, and since when they have been there. Notices who moves them: once a window has stood
// still, that is the user.
class WindowTracker final {
public:
    WindowTracker() { m_clock.start(); }

    void look(const QList<MovableWindow> &live);

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

    QElapsedTimer m_clock;
    QHash<quint32, TrackedWindow> m_seen;
    QHash<QString, qint64> m_news; // When an application last showed a window or changed a title.
};

} // namespace ardeno::WindowLayout
