// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusClient.h"

#include "app/BusNames.h"
#include "app/BusRequest.h"
#include "desktop/Capability.h"
#include "model/CheckpointRepository.h"
#include "model/LibraryLock.h"
#include "platform/MakeDesktop.h"
#include "platform/linux/running/ProcessFacts.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

namespace ardeno {

namespace {

constexpr int patience = 10'000; // Milliseconds for an application that is about to serve.
constexpr int pause = 20;        // Milliseconds.

using Holder = LibraryLock::Holder;

// The application that holds this user's library.
std::optional<Holder> application()
{
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    return holder && holder->kind == LibraryLock::Kind::Application ? holder : std::nullopt;
}

// The process that has the application's name on the bus; 0: nobody has it.
qint64 nameOwner(const QDBusConnection &connection)
{
    const QDBusReply<uint> owner = connection.interface()->servicePid(bus::service);
    return owner.isValid() ? owner.value() : 0;
}

// Whether this process is no application of ours, which may not have the library yet.
bool isStranger(qint64 process)
{
    const QString program = ProcessFacts(static_cast<qint32>(process)).program().section('/', -1);
    return process != 0 && !program.startsWith("ardeno-");
}

QString taken(qint64 owner)
{
    return owner == 0 ? QString() : u" Process %1 has its name there, %2."_qs.arg(owner).arg(bus::service);
}

// Waits for an application that has just been started and is not on the bus yet, or whose predecessor is about to go.
std::optional<Holder> reachableApplication(const QDBusConnection &connection)
{
    const QDeadlineTimer deadline(patience);
    const QDeadlineTimer strangerDeadline(patience / 10);
    while (const std::optional<Holder> running = application()) {
        const qint64 owner = nameOwner(connection);
        if (owner == running->process)
            return running;
        if (isStranger(owner) || (owner != 0 && strangerDeadline.hasExpired()))
            throw Failure(
                "Command", 4,
                u"The running application, %1 (process %2), cannot be reached on the session bus."_qs.arg(running->name)
                        .arg(running->process) +
                    taken(owner));
        if (deadline.hasExpired())
            break;
        QThread::msleep(pause);
    }
    return std::nullopt;
}

} // namespace

QCoro::Task<std::optional<ExitStatus>> BusClient::run(Output &out, QStringList arguments)
{
    if (!application())
        co_return std::nullopt;
    const QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected())
        co_return std::nullopt;
    const std::optional<Holder> running = reachableApplication(connection);
    if (!running)
        co_return std::nullopt;
    BusRequest request(connection, *running);
    co_return co_await request.run(out, arguments);
}

std::optional<ExitStatus> BusClient::showWindow(Output &out)
{
    QDBusMessage call = QDBusMessage::createMethodCall(bus::service, bus::path, bus::application, "Activate");
    call << QVariantMap();
    call.setAutoStartService(false);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, patience / 2);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return ExitStatus::Done;
    if (reply.errorName() != bus::refusal)
        return std::nullopt;
    out.printError(reply.errorMessage());
    return ExitStatus::NotAvailable;
}

void BusClient::refuseStranger()
{
    if (const qint64 owner = nameOwner(QDBusConnection::sessionBus()); isStranger(owner))
        throw Failure("Command", 4, u"Ardeno cannot be reached on the session bus."_qs + taken(owner));
}

void BusClient::startApplication()
{
    const QDBusConnection connection = QDBusConnection::sessionBus();
    if (!connection.isConnected())
        throw notAvailable("There is no session bus, over which Ardeno could be reached again.");
    refuseStranger();
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
        const std::optional<Holder> running = application();
        const qint64 owner = nameOwner(connection);
        if (running && running->process == owner)
            return;
        if (deadline.hasExpired() || isStranger(owner))
            throw Failure("Command", 4,
                          u"Ardeno was started and does not answer on the session bus."_qs + taken(owner));
        QThread::msleep(pause);
    }
}

} // namespace ardeno
