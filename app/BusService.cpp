// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusService.h"

#include "app/BusNames.h"
#include "app/Caller.h"
#include "support/Failure.h"
#include "support/FileDescriptor.h"

#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QMetaObject>

#include <sys/mman.h>

#include <utility>

// Outside of the namespace, as the macro wants it.
static void openBusFiles()
{
    Q_INIT_RESOURCE(bus);
}

namespace ardeno {

namespace {

constexpr const char *wrongArguments = "org.freedesktop.DBus.Error.InvalidArgs";
constexpr const char *failed = "org.freedesktop.DBus.Error.Failed";

// A file in memory: answers of any length are handed over without a copy, and wait for nobody. Throws Failure.
QVariant fileWith(const QByteArray &bytes)
{
    const FileDescriptor file(::memfd_create("answer", MFD_CLOEXEC));
    QByteArrayView rest = bytes;
    while (file && !rest.isEmpty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.number(), rest.data(), static_cast<size_t>(rest.size())); });
        if (written < 0)
            throw Failure::system(errno, "answer");
        rest = rest.sliced(written);
    }
    if (!file)
        throw Failure::system(errno, "answer");
    return QVariant::fromValue(QDBusUnixFileDescriptor(file.number()));
}

QCoro::Task<void> carriedOut(std::function<void()> action)
{
    action();
    co_return;
}

} // namespace

BusService::BusService(const QDBusConnection &connection) : m_connection(connection) {}

bool BusService::begin(Actions actions)
{
    m_actions = std::move(actions);
    // Whoever sees the name finds the object.
    return m_connection.registerVirtualObject(bus::path, this) && m_connection.registerService(bus::service);
}

void BusService::serveCommands(Run run)
{
    m_run = std::move(run);
    schedule();
}

void BusService::refuseCommands()
{
    m_isRefusing = true;
    while (!m_queue.isEmpty())
        m_queue.dequeue().refuse();
}

void BusService::finishWith(const std::function<void()> &last)
{
    if (std::exchange(m_isFinishing, true))
        return;
    refuseCommands();
    enqueue({.carryOut = [last] { return carriedOut(last); }});
}

QString BusService::introspect(const QString &) const
{
    openBusFiles();
    QFile description(":/bus/org.ardeno.Ardeno.xml");
    if (!description.open(QIODevice::ReadOnly))
        return {};
    // Only the interfaces: the bus library writes the rest.
    const QString text = QString::fromUtf8(description.readAll());
    const qsizetype from = text.indexOf("<node>") + 6;
    return text.mid(from, text.lastIndexOf("</node>") - from);
}

bool BusService::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    if (message.type() != QDBusMessage::MethodCallMessage)
        return false;
    if (message.interface() == bus::application)
        return handleApplication(message);
    if (message.interface() != bus::commandLine || message.member() != "Execute")
        return false;
    if (message.signature() != "as")
        m_connection.send(message.createErrorReply(wrongArguments, "Execute takes a list of texts."));
    else if (m_isRefusing)
        refuse(message);
    else
        enqueue({.carryOut = [this, message] { return carryOut(message); },
                 .refuse = [this, message] { refuse(message); }});
    return true;
}

bool BusService::handleApplication(const QDBusMessage &message)
{
    const QString member = message.member();
    if (member != "Activate" && member != "Open" && member != "ActivateAction")
        return false;
    const std::function<void()> *const wanted = action(message);
    if (!wanted) {
        const QString reason = member == "ActivateAction"
                                   ? u"There is no action “%1”."_qs.arg(message.arguments().value(0).toString())
                                   : u"Ardeno runs without a display, so it has no window."_qs;
        m_connection.send(message.createErrorReply(bus::refusal, reason));
        return true;
    }
    // What shows something does not wait for a command.
    if (wanted == &m_actions.stopRecording)
        enqueue({.carryOut = [action = *wanted] { return carriedOut(action); }});
    else
        QMetaObject::invokeMethod(this, *wanted, Qt::QueuedConnection);
    m_connection.send(message.createReply());
    return true;
}

const std::function<void()> *BusService::action(const QDBusMessage &message) const
{
    const QString name = message.arguments().value(0).toString();
    const std::function<void()> *found = &m_actions.activate;
    if (message.member() == "ActivateAction")
        found = name == "quick-save"       ? &m_actions.quickSave
                : name == "stop-recording" ? &m_actions.stopRecording
                                           : nullptr;
    return found && *found ? found : nullptr;
}

QCoro::Task<void> BusService::carryOut(QDBusMessage message)
{
    const Caller caller(m_connection, message.service());
    if (!caller.isThere())
        co_return;
    const QStringList arguments = message.arguments().value(0).toStringList();
    const CommandAnswer answer = co_await m_run(caller, arguments);
    try {
        m_connection.send(message.createReply({answer.status, fileWith(answer.output), fileWith(answer.errors)}));
    } catch (const Failure &failure) {
        m_connection.send(message.createErrorReply(failed, failure.description()));
    }
}

void BusService::refuse(const QDBusMessage &message)
{
    m_connection.send(message.createErrorReply(bus::ending, "The running application is ending; nothing was done."));
}

void BusService::enqueue(const Task &task)
{
    m_queue.enqueue(task);
    schedule();
}

void BusService::schedule()
{
    QMetaObject::invokeMethod(this, [this] { workOff(); }, Qt::QueuedConnection);
}

QCoro::Task<void> BusService::workOff()
{
    if (!m_run || m_queue.isEmpty() || std::exchange(m_isWorking, true))
        co_return;
    const Task task = m_queue.dequeue();
    co_await task.carryOut();
    m_isWorking = false;
    schedule();
}

} // namespace ardeno
