// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/TrayHost.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDateTime>

namespace ardeno {

namespace {

constexpr const char *watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char *watcherPath = "/StatusNotifierWatcher";
constexpr const char *connectionName = "tray-host";

} // namespace

TrayHost::TrayHost() : m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName))
{
    m_connection.registerVirtualObject(watcherPath, this);
    m_connection.registerService(watcherName);
}

TrayHost::~TrayHost()
{
    m_connection.unregisterService(watcherName);
    m_connection.unregisterObject(watcherPath);
    QDBusConnection::disconnectFromBus(connectionName);
}

QString TrayHost::introspect(const QString &) const
{
    return R"(<interface name="org.kde.StatusNotifierWatcher">
        <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
        <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    </interface>)";
}

bool TrayHost::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.member() == "RegisterStatusNotifierItem") {
        m_item = message.arguments().value(0).toString();
        return connection.send(message.createReply());
    }
    if (message.member() != "Get")
        return false;
    const QVariant answer =
        message.arguments().value(1) == "IsStatusNotifierHostRegistered" ? QVariant(true) : QVariant(0);
    return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(answer))));
}

QVariant TrayHost::property(const QString &name) const
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_item, "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get");
    call << "org.kde.StatusNotifierItem" << name;
    return m_connection.call(call).arguments().value(0).value<QDBusVariant>().variant();
}

QString TrayHost::toolTip() const
{
    // Icon, pictures, title, text.
    const auto argument = property("ToolTip").value<QDBusArgument>();
    QString icon;
    QString title;
    argument.beginStructure();
    argument >> icon;
    argument.beginArray();
    while (!argument.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray pixels;
        argument.beginStructure();
        argument >> width >> height >> pixels;
        argument.endStructure();
    }
    argument.endArray();
    argument >> title;
    argument.endStructure();
    return title;
}

QList<TrayHost::Entry> TrayHost::readMenu() const
{
    const QString path = property("Menu").value<QDBusObjectPath>().path();
    QDBusMessage call = QDBusMessage::createMethodCall(m_item, path, "com.canonical.dbusmenu", "GetLayout");
    call << 0 << -1 << QStringList();
    const auto root = m_connection.call(call).arguments().value(1).value<QDBusArgument>();
    QList<Entry> entries;
    int id = 0;
    QVariantMap properties;
    root.beginStructure();
    root >> id >> properties;
    root.beginArray();
    while (!root.atEnd()) {
        QDBusVariant child;
        root >> child;
        const auto entry = child.variant().value<QDBusArgument>();
        entry.beginStructure();
        entry >> id >> properties;
        const bool isLine = properties.value("type") == "separator";
        // The mark of a shortcut letter.
        const QString label = isLine ? "-" : properties.value("label").toString().remove('_');
        if (properties.value("visible", true).toBool())
            entries.append({id, label, properties.value("enabled", true).toBool()});
        entry.endStructure();
    }
    root.endArray();
    root.endStructure();
    return entries;
}

QStringList TrayHost::entries() const
{
    QStringList labels;
    for (const Entry &entry : readMenu())
        labels << entry.label;
    return labels;
}

bool TrayHost::choose(const QString &wanted) const
{
    const QString path = property("Menu").value<QDBusObjectPath>().path();
    for (const Entry &entry : readMenu()) {
        if (entry.label != wanted || !entry.isEnabled)
            continue;
        QDBusMessage call = QDBusMessage::createMethodCall(m_item, path, "com.canonical.dbusmenu", "Event");
        call << entry.id << "clicked" << QVariant::fromValue(QDBusVariant(QString()))
             << uint(QDateTime::currentSecsSinceEpoch());
        return m_connection.call(call).type() == QDBusMessage::ReplyMessage;
    }
    return false;
}

} // namespace ardeno
