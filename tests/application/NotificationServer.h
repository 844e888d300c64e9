// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

namespace ardeno {

// A desktop's notifications: it keeps those that are shown.
class NotificationServer final : public QDBusVirtualObject {
public:
    NotificationServer();
    ~NotificationServer() override;
    NotificationServer(const NotificationServer &) = delete;
    NotificationServer &operator=(const NotificationServer &) = delete;

    // The text of the one that is shown; empty when there is none.
    const QString &text() const { return m_text; }

    // How many there have been, and how many stand there now.
    uint count() const { return m_count; }

    // A slow one answers when it is slow no more.
    void setSlow(bool isSlow);

    qsizetype shownCount() const { return m_shown.size(); }

    // As a click on its button; false when it has no such one.
    bool press(const QString &label) const;

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_connection;
    uint m_count = 0;
    QList<uint> m_shown = {};
    bool m_isSlow = false;
    QList<QDBusMessage> m_unanswered = {};
    QString m_text = {};
    QStringList m_actions = {}; // Each with its label.
};

} // namespace ardeno
