// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusRequest.h"

#include "app/BusNames.h"
#include "app/EndSignals.h"
#include "platform/linux/running/ProcessFacts.h"
#include "support/Failure.h"

#include <QCoroFuture>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QTimer>

#include <limits>

namespace ardeno {

namespace {

constexpr int interval = 500;          // Milliseconds between two looks at whether the application lives.
constexpr int stoppedPatience = 1'000; // Milliseconds of silence of an application that was stopped …
constexpr int silentPatience = 30'000; // … and of one that may only be short of memory or of time.

} // namespace

BusRequest::BusRequest(const QDBusConnection &connection, LibraryLock::Holder application)
    : m_connection(connection), m_application(std::move(application))
{
    m_connection.registerVirtualObject(bus::path, this);
}

BusRequest::~BusRequest()
{
    m_connection.unregisterObject(bus::path);
}

QCoro::Task<ExitStatus> BusRequest::run(Output &out, QStringList arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(bus::service, bus::path, bus::commandLine, "Execute");
    call.setArguments({arguments});
    call.setAutoStartService(false);
    const QDBusMessage reply = co_await waitForAnswer(call);
    if (m_givenUp.isEmpty() || reply.type() == QDBusMessage::ReplyMessage)
        co_return printAnswer(out, reply);
    const QString rest =
        m_hasBegun ? u"It had begun with the command and may still complete it."_qs : u"Nothing was done."_qs;
    throw Failure("Command", 5, m_givenUp + ' ' + rest);
}

QCoro::Task<QDBusMessage> BusRequest::waitForAnswer(QDBusMessage call)
{
    // The next signal ends the process at once, which takes back what was not begun.
    const EndSignals interruption(EndSignals::Again::EndAtOnce, [this] {
        giveUp(u"Interrupted while the running application (process %1) was asked."_qs.arg(m_application.process));
    });
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, this, &BusRequest::listen);
    pulse.start(interval);
    m_silence.start();
    m_end.start();
    QDBusPendingCallWatcher answer(m_connection.asyncCall(call, std::numeric_limits<int>::max()));
    QObject::connect(&answer, &QDBusPendingCallWatcher::finished, this, [this] { m_end.finish(); });
    const QFuture<void> end = m_end.future();
    co_await end;
    co_return answer.isFinished() ? answer.reply() : QDBusMessage();
}

void BusRequest::giveUp(const QString &reason)
{
    m_givenUp = reason;
    m_end.finish();
}

// The bus library answers on a thread of its own, so that an application that is busy is heard.
void BusRequest::listen()
{
    const QDBusMessage ping =
        QDBusMessage::createMethodCall(bus::service, bus::path, "org.freedesktop.DBus.Peer", "Ping");
    auto *const answer = new QDBusPendingCallWatcher(m_connection.asyncCall(ping), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (!answer->isError())
            m_silence.start();
    });
    judgeSilence();
}

void BusRequest::judgeSilence()
{
    const QString who =
        u"The running application, %1 (process %2), "_qs.arg(m_application.name).arg(m_application.process);
    if (m_silence.hasExpired(stoppedPatience) && ProcessFacts(static_cast<qint32>(m_application.process)).isStopped())
        giveUp(who + "has been stopped and does not answer.");
    else if (m_silence.hasExpired(silentPatience))
        giveUp(who + "does not answer.");
}

QString BusRequest::introspect(const QString &) const
{
    return {};
}

bool BusRequest::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    if (message.interface() != bus::caller || message.member() != "Begin")
        return false;
    m_hasBegun = m_hasBegun || m_givenUp.isEmpty();
    m_connection.send(message.createReply(m_givenUp.isEmpty()));
    return true;
}

ExitStatus BusRequest::printAnswer(Output &out, const QDBusMessage &reply) const
{
    if (reply.errorName() == bus::ending)
        throw Failure("Command", 5, reply.errorMessage());
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != "ihh") {
        const QString rest = m_hasBegun ? u", which had begun with the command,"_qs : QString();
        throw Failure("Command", 5, u"The running application%1 did not answer: %2"_qs.arg(rest, reply.errorMessage()));
    }
    const auto output = reply.arguments()[1].value<QDBusUnixFileDescriptor>();
    const auto errors = reply.arguments()[2].value<QDBusUnixFileDescriptor>();
    out.printFiles(output.fileDescriptor(), errors.fileDescriptor());
    return static_cast<ExitStatus>(reply.arguments()[0].toInt());
}

} // namespace ardeno
