// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TrayHost.h"

#include <QDBusConnection>
#include <QDBusReply>
#include <QDBusVariant>

namespace ardeno {

QDBusMessage trayHost::question()
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcher, path, "org.freedesktop.DBus.Properties", "Get");
    call << watcher << "IsStatusNotifierHostRegistered";
    call.setAutoStartService(false);
    return call;
}

Capability trayHost::availability()
{
    constexpr int patience = 2000; // Milliseconds.
    const QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected())
        return Capability::unavailable("There is no session bus.");
    const QDBusReply<QDBusVariant> reply = connection.call(question(), QDBus::Block, patience);
    if (reply.isValid() && reply.value().variant().toBool())
        return Capability::available();
    return Capability::unavailable("No panel of this session shows tray items.");
}

} // namespace ardeno
