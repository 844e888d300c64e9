// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Messages.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <optional>

class QDBusPendingCallWatcher;

namespace ardeno {

// Says as a notification of the desktop what goes wrong while nobody sees the window.
class HiddenFailures final : public QObject {
    Q_OBJECT

public:
    struct Window {
        std::function<bool()> isSeen;
        std::function<void()> show;
        std::function<void(bool hasUnseen)> mark; // Wherever else it can be seen.
    };

    HiddenFailures(const Messages &messages, const QDBusConnection &connection, Window window);

    // The window is there now.
    void seen();

private Q_SLOTS: // The bus library calls slots alone.
    void invoked(uint id, const QString &action);
    void closed(uint id, uint reason);

private:
    void look();
    // One at a time: the next one takes the place of the one whose number is known by then.
    void notify(const QString &sentence);
    void notified(QDBusPendingCallWatcher *call);
    void withdraw();

    const Messages &m_messages;
    QDBusConnection m_connection;
    Window m_window;
    QStringList m_known; // What has been seen or said.
    bool m_hasUnseen = false;
    uint m_notification = 0; // Of the desktop; 0: there is none.
    bool m_isNotifying = false;
    std::optional<QString> m_next; // What came meanwhile.
    Subscriptions m_subscriptions;
};

} // namespace ardeno
