// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Caller.h"

#include "app/BusNames.h"
#include "support/Failure.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>

namespace ardeno {

namespace {

constexpr int callerPatience = 3'000; // Milliseconds; a caller that was stopped says nothing.

const Caller *current = nullptr;

} // namespace

Caller::Caller(const QDBusConnection &connection, const QString &name) : m_connection(connection), m_name(name)
{
    current = this;
}

Caller::~Caller()
{
    current = nullptr;
}

bool Caller::isThere() const
{
    return m_connection.interface()->isServiceRegistered(m_name);
}

void Caller::begin()
{
    if (current && !current->isWaiting())
        throw Failure("Command", 5, "Nothing was done: whoever gave the command did not answer when its turn came.");
}

bool Caller::isWaiting() const
{
    const QDBusMessage question = QDBusMessage::createMethodCall(m_name, bus::path, bus::caller, "Begin");
    const QDBusMessage reply = m_connection.call(question, QDBus::BlockWithGui, callerPatience);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return reply.arguments().value(0).toBool();
    // Whoever calls by other means knows nothing of the question, but is there to say so.
    const QDBusError::ErrorType error = QDBusError(reply).type();
    return error == QDBusError::UnknownMethod || error == QDBusError::UnknownObject ||
           error == QDBusError::UnknownInterface;
}

} // namespace ardeno
