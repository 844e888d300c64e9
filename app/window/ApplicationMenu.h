// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Operations.h"
#include "store/SessionFlow.h"
#include "store/SessionRecorder.h"

#include <QAction>

class QMenu;

namespace ardeno {

// What the application does besides its window's work: the menu of the tray item, whose entries the window has as well.
class ApplicationMenu final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::MenuContent)

public:
    // An action that is empty has no entry.
    struct Actions {
        std::function<void()> quickSave = {};
        std::function<void()> openWindow = {};
        std::function<void()> openNewsletter = {};
        std::function<void()> quit = {};
    };

    ApplicationMenu(SessionFlow &sessions, const Operations &operations, const SessionRecorder &recorder,
                    const Actions &actions);

    void fillTray(QMenu *menu);

    void openWindow() { m_openWindow.trigger(); }

    // The window shows a session in progress by itself.
    QList<QAction *> windowActions();

private:
    void showState();

    const Operations &m_operations;
    const SessionRecorder &m_recorder;
    QAction m_quickSave;
    QAction m_recording;
    QAction m_stop;
    QAction m_openWindow;
    QAction m_newsletter;
    QAction m_quit;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
