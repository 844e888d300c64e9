// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/roads/FocusWatch.h"

#include <QDBusVariant>

namespace ardeno {

namespace {

constexpr auto connectionName = "focus-watch";

QDBusConnection openAccessibilityBus()
{
    const QDBusMessage question =
        QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress");
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question);
    return QDBusConnection::connectToBus(answer.arguments().value(0).toString(), connectionName);
}

} // namespace

FocusWatch::FocusWatch() : m_bus(openAccessibilityBus())
{
    QDBusMessage wish = QDBusMessage::createMethodCall("org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                                       "org.a11y.atspi.Registry", "RegisterEvent");
    wish << "object:state-changed:focused";
    m_bus.call(wish);
    m_bus.connect({}, {}, "org.a11y.atspi.Event.Object", "StateChanged", this, SLOT(changed(QDBusMessage)));
}

FocusWatch::~FocusWatch()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

void FocusWatch::changed(const QDBusMessage &message)
{
    const QVariantList told = message.arguments();
    if (told.value(0).toString() != "focused" || told.value(1).toInt() != 1)
        return;
    QDBusMessage question =
        QDBusMessage::createMethodCall(message.service(), message.path(), "org.freedesktop.DBus.Properties", "Get");
    question << "org.a11y.atspi.Accessible" << "Name";
    const QDBusMessage answer = m_bus.call(question);
    if (answer.type() != QDBusMessage::ReplyMessage)
        return; // It has gone again.
    m_name = answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    m_name.removeIf([](QChar letter) { return letter.category() == QChar::Other_Format; }); // Marks of direction.
    ++m_count;
}

} // namespace ardeno
