// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"

#include "app/BusNames.h"
#include "app/Output.h"
#include "desktop/Capability.h"
#include "model/CheckpointRepository.h"
#include "model/LibraryLock.h"
#include "platform/MakeDesktop.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

#include <limits>

namespace ardeno {

namespace {

constexpr int patience = 10'000; // Milliseconds for an application that is about to serve.
constexpr int pause = 20;        // Milliseconds.

// The process of the application that holds this user's library.
std::optional<qint64> applicationProcess()
{
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    if (!holder || holder->kind != LibraryLock::Kind::Application)
        return std::nullopt;
    return holder->process;
}

bool servesOnBus(const QDBusConnection &connection, qint64 process)
{
    const QDBusReply<uint> owner = connection.interface()->servicePid(bus::service);
    return owner.isValid() && owner.value() == process;
}

// Waits for an application that has just been started and is not on the bus yet.
bool isReachable(const QDBusConnection &connection)
{
    const QDeadlineTimer deadline(patience);
    while (const auto process = applicationProcess()) {
        if (servesOnBus(connection, *process))
            return true;
        if (deadline.hasExpired())
            return false;
        QThread::msleep(pause);
    }
    return false;
}

} // namespace

std::optional<ExitStatus> BusClient::run(const QStringList &arguments)
{
    if (!applicationProcess())
        return std::nullopt;
    const QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected() || !isReachable(connection))
        return std::nullopt;
    QDBusMessage call = QDBusMessage::createMethodCall(bus::service, bus::path, bus::commandLine, "Run");
    call.setArguments({arguments});
    call.setAutoStartService(false);
    const QDBusMessage reply = connection.call(call, QDBus::Block, std::numeric_limits<int>::max());
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() != 3) {
        printError(u"The running application did not answer: %1"_qs.arg(reply.errorMessage()));
        return ExitStatus::Failed;
    }
    printBytes(reply.arguments()[1].toByteArray(), reply.arguments()[2].toByteArray());
    return static_cast<ExitStatus>(reply.arguments()[0].toInt());
}

std::optional<ExitStatus> BusClient::showWindow()
{
    QDBusMessage call = QDBusMessage::createMethodCall(bus::service, bus::path, bus::application, "Activate");
    call << QVariantMap();
    call.setAutoStartService(false);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, patience / 2);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return ExitStatus::Done;
    if (reply.errorName() != bus::refusal)
        return std::nullopt;
    printError(reply.errorMessage());
    return ExitStatus::NotAvailable;
}

void BusClient::startApplication()
{
    const QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected())
        throw notAvailable("There is no session bus, over which Ardeno could be reached again.");
    QProcess program;
    const QString kind = isDisplayReachable() ? "/ardeno-window" : "/ardeno-command";
    program.setProgram(QCoreApplication::applicationDirPath() + kind);
    program.setArguments({"--background"});
    program.setStandardInputFile(QProcess::nullDevice());
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    if (!program.startDetached())
        throw Failure("Command", 4, u"Ardeno could not be started: %1"_qs.arg(program.errorString()));
    const QDeadlineTimer deadline(patience);
    for (;;) {
        const auto process = applicationProcess();
        if (process && servesOnBus(connection, *process))
            return;
        if (deadline.hasExpired())
            throw Failure("Command", 4, u"Ardeno was started and does not answer on the session bus."_qs);
        QThread::msleep(pause);
    }
}

} // namespace ardeno
