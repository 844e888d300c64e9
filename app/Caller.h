// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QString>

namespace ardeno {

// Another process on the bus, for which the application carries out a command.
class Caller final {
public:
    Caller(const QDBusConnection &connection, const QString &name) : m_connection(connection), m_name(name) {}

    // False when that process has gone.
    bool isThere() const;

    // Every command comes here before it changes anything: throws Failure when whoever gave it does not want it any
    // more.
    QCoro::Task<void> begin() const;

private:
    QCoro::Task<bool> isWaiting() const;

    QDBusConnection m_connection;
    QString m_name;
};

} // namespace ardeno
