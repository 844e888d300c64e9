// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/window/ApplicationMenu.h"
#include "support/Observable.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

class QDBusPendingCallWatcher;

namespace ardeno {

// The item in the desktop's tray, while there is a host that shows it. Hosts come late, go and come again.
class TrayItem final : public QObject {
    Q_OBJECT

public:
    TrayItem(const SessionRecorder &recorder, ApplicationMenu &menu, const QDBusConnection &connection);
    ~TrayItem() override;

    bool isShown() const { return m_icon != nullptr; }

    // Whether it says that there is something to be looked at.
    void setMarked(bool isMarked);

private Q_SLOTS: // The bus library calls slots alone.
    void look();

private:
    void answered(QDBusPendingCallWatcher *call);
    void show();
    void hide();
    void showState();

    const SessionRecorder &m_recorder;
    ApplicationMenu &m_menu;
    bool m_isMarked = false;
    QDBusConnection m_connection;
    QDBusServiceWatcher m_watcher;
    // Before the icon, which refers to it.
    std::unique_ptr<QMenu> m_iconMenu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
