// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/running/LiveWindow.h"

#include <QCoroTask>

#include <QDeadlineTimer>
#include <QHash>
#include <QSet>
#include <QTimer>

#include <functional>

namespace ardeno {

// What is needed of a desktop session whose windows can be seen, to leave the user's focus where it is.
struct DesktopFocus {
    LiveWindowList liveWindows = {};
    std::function<quint32()> activeWindow = {}; // 0: none.
    std::function<void(quint32)> activate = {};
    std::function<bool()> isUserSwitching = {}; // Whether a button or a key is down that takes people to other windows.
};

// A new application takes the focus wherever it is started, some more than once; it is given back to the window that
// had it, unless the user has gone elsewhere meanwhile. Watches from the first application until all have settled.
class FocusKeeper final {
public:
    explicit FocusKeeper(DesktopFocus session);

    // Before an application is started, while the focus is still where the user left it.
    void expect(const QString &appID);
    // Tells, for an application that has windows already, whether what hands over to it is still at work.
    void setStarter(const QString &appID, const std::function<bool()> &isAtWork);

    // It will show nothing.
    void cancel(const QString &appID);
    // Whether the application has yet to show what it was started for.
    bool isStarting(const QString &appID) const;

    // Makes the window the active one, until resume() gives the focus back. False when it did not become so in time.
    QCoro::Task<bool> lend(quint32 window);
    void resume();

    // Waits until every application has had its chance to take the focus, at most some seconds.
    QCoro::Task<void> settle();

private:
    struct Expected {
        QString appID;
        qsizetype windowsBefore = 0;
        std::function<bool()> isStarting = {};
        QDeadlineTimer patience = {};
        bool hasCome = false;
        QDeadlineTimer calm = {}; // From when on its window has had its chance to take the focus.
    };

    void look();
    void lost(const LiveWindow &to, const QList<LiveWindow> &all);
    bool isStarted(const LiveWindow &window, const QList<LiveWindow> &all) const;
    bool isChoice(quint32 window) const;
    void giveBack();
    void notice(const QList<QString> &appIDs);
    QList<LiveWindow> windows() const;

    bool isSettled() const { return m_expected.isEmpty() && !m_isReturning; }

    DesktopFocus m_session;
    QTimer m_watch;
    QList<Expected> m_expected = {};
    QSet<QString> m_started = {};
    QSet<quint32> m_before = {};       // The windows there were when the watch began.
    QHash<quint32, int> m_takers = {}; // How often the focus was taken back from a window.
    quint32 m_focused = 0;             // The window that has the user's focus; 0 when there is none to be kept.
    QDeadlineTimer m_switching = {};   // Until then a change may be the user's.
    bool m_isLent = false;
    bool m_isReturning = false; // The window manager has been asked and has not got to it yet.
    int m_tries = 0;
    QDeadlineTimer m_nextTry = {};
    QDeadlineTimer m_patience = {};
};

} // namespace ardeno
