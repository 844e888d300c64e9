// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/NotificationServer.h"

namespace ardeno {

namespace {

constexpr const char *serverName = "org.freedesktop.Notifications";
constexpr const char *serverPath = "/org/freedesktop/Notifications";
constexpr const char *serverConnection = "notification-server";

} // namespace

NotificationServer::NotificationServer()
    : m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, serverConnection))
{
    m_connection.registerVirtualObject(serverPath, this);
    m_connection.registerService(serverName);
}

NotificationServer::~NotificationServer()
{
    m_connection.unregisterService(serverName);
    m_connection.unregisterObject(serverPath);
    QDBusConnection::disconnectFromBus(serverConnection);
}

void NotificationServer::setSlow(bool isSlow)
{
    m_isSlow = isSlow;
    while (!m_isSlow && !m_unanswered.isEmpty())
        m_connection.send(m_unanswered.takeFirst());
}

bool NotificationServer::press(const QString &label) const
{
    const qsizetype at = m_actions.lastIndexOf(label);
    if (at < 1)
        return false;
    QDBusMessage signal = QDBusMessage::createSignal(serverPath, serverName, "ActionInvoked");
    signal << m_count << m_actions.at(at - 1);
    return m_connection.send(signal);
}

QString NotificationServer::introspect(const QString &) const
{
    return {};
}

bool NotificationServer::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QVariantList arguments = message.arguments();
    if (message.member() == "Notify") {
        m_text = arguments.value(4).toString();
        m_actions = arguments.value(5).toStringList();
        m_shown.removeOne(arguments.value(1).toUInt());
        m_shown.append(++m_count);
        m_unanswered.append(message.createReply(m_count));
        setSlow(m_isSlow);
        return true;
    }
    if (message.member() != "CloseNotification")
        return false;
    if (arguments.value(0).toUInt() == m_count)
        m_text.clear();
    m_shown.removeOne(arguments.value(0).toUInt());
    return connection.send(message.createReply());
}

} // namespace ardeno
