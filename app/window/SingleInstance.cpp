// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

namespace ardeno {

bool SingleInstance::claim()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: whoever finds the name finds it answering.
    if (!bus.isConnected() || !bus.registerObject(path, this, QDBusConnection::ExportAllSlots))
        return true;
    if (bus.registerService(service))
        return true;
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, "org.freedesktop.Application", "Activate");
    call << QVariantMap();
    constexpr int patience = 5000; // Milliseconds.
    return bus.call(call, QDBus::Block, patience).type() != QDBusMessage::ReplyMessage;
}

void SingleInstance::Activate(const QVariantMap &platformData)
{
    Q_UNUSED(platformData)
    if (m_activated)
        m_activated();
}

} // namespace ardeno
