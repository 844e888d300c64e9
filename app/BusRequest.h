// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"
#include "model/LibraryLock.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QPromise>

namespace ardeno {

// One command that the running application carries out for this process, for as long as the application answers and
// nobody interrupts. One that was given up before it had begun is never carried out.
class BusRequest final : public QDBusVirtualObject {
public:
    BusRequest(const QDBusConnection &connection, LibraryLock::Holder application);
    ~BusRequest() override;

    // Prints what the command wrote. Throws Failure when there is no answer.
    QCoro::Task<ExitStatus> run(Output &out, QStringList arguments);

    QString introspect(const QString &path) const override;
    // Whether the command is still wanted.
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QCoro::Task<QDBusMessage> waitForAnswer(QDBusMessage call);
    void giveUp(const QString &reason);
    void listen();
    void judgeSilence();
    ExitStatus printAnswer(Output &out, const QDBusMessage &reply) const;

    QDBusConnection m_connection;
    LibraryLock::Holder m_application;
    QPromise<void> m_end; // Of the waiting.
    QElapsedTimer m_silence;
    bool m_hasBegun = false;
    QString m_givenUp = {}; // Why; empty: the command is wanted.
};

} // namespace ardeno
