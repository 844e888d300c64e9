// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Caller.h"

#include "app/BusNames.h"
#include "support/Failure.h"

#include <QCoroDBusPendingCall>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>

namespace ardeno {

namespace {

constexpr int callerPatience = 3'000; // Milliseconds; a caller that was stopped says nothing.

} // namespace

bool Caller::isThere() const
{
    return m_connection.interface()->isServiceRegistered(m_name);
}

QCoro::Task<void> Caller::begin() const
{
    const bool isWanted = co_await isWaiting();
    if (!isWanted)
        throw Failure("Command", 5, "Nothing was done: whoever gave the command did not answer when its turn came.");
}

QCoro::Task<bool> Caller::isWaiting() const
{
    const QDBusMessage question = QDBusMessage::createMethodCall(m_name, bus::path, bus::caller, "Begin");
    const QDBusPendingCall answer = m_connection.asyncCall(question, callerPatience);
    const QDBusMessage reply = co_await answer;
    if (reply.type() == QDBusMessage::ReplyMessage)
        co_return reply.arguments().value(0).toBool();
    // Whoever calls by other means knows nothing of the question, but is there to say so.
    const QDBusError::ErrorType error = QDBusError(reply).type();
    co_return error == QDBusError::UnknownMethod || error == QDBusError::UnknownObject ||
        error == QDBusError::UnknownInterface;
}

} // namespace ardeno
