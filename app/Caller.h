// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace ardeno {

// While it lives, the command is carried out for another process on the bus. One at a time.
class Caller final {
public:
    Caller(const QDBusConnection &connection, const QString &name);
    Caller(const Caller &) = delete;
    Caller &operator=(const Caller &) = delete;
    ~Caller();

    // False when that process has gone.
    bool isThere() const;

    // Every command comes here before it changes anything: throws Failure when whoever gave it does not want it any
    // more. The events of the application are handled meanwhile. A command of this process is always wanted.
    static void begin();

private:
    bool isWaiting() const;

    QDBusConnection m_connection;
    QString m_name;
};

} // namespace ardeno
