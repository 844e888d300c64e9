// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BusService.h"

#include "app/BusNames.h"

#include <QDBusError>
#include <QFile>
#include <QMetaObject>

#include <utility>

// Outside of the namespace, as the macro wants it.
static void openBusFiles()
{
    Q_INIT_RESOURCE(bus);
}

namespace ardeno {

namespace {

constexpr const char *wrongArguments = "org.freedesktop.DBus.Error.InvalidArgs";

} // namespace

BusService::BusService(const QDBusConnection &connection) : m_connection(connection) {}

bool BusService::begin(Actions actions)
{
    m_actions = std::move(actions);
    // Whoever sees the name finds the object.
    return m_connection.registerVirtualObject(bus::path, this) && m_connection.registerService(bus::service);
}

void BusService::serveCommands()
{
    m_isServing = true;
    QMetaObject::invokeMethod(this, [this] { workOff(); }, Qt::QueuedConnection);
}

void BusService::finishWith(const std::function<void()> &last)
{
    if (std::exchange(m_isFinishing, true))
        return;
    enqueue(last);
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
    if (message.interface() != bus::commandLine || message.member() != "Run")
        return false;
    if (message.signature() != "as")
        m_connection.send(message.createErrorReply(wrongArguments, "Run takes a list of texts."));
    else
        enqueue([this, message] { carryOut(message); });
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
        enqueue(*wanted);
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

void BusService::carryOut(const QDBusMessage &message)
{
    const CommandAnswer answer = m_actions.run(message.arguments().value(0).toStringList());
    m_connection.send(message.createReply({answer.status, answer.output, answer.errors}));
}

void BusService::enqueue(const std::function<void()> &work)
{
    m_queue.enqueue(work);
    QMetaObject::invokeMethod(this, [this] { workOff(); }, Qt::QueuedConnection);
}

// A command that waits runs the event loop, and what is asked for meanwhile waits here.
void BusService::workOff()
{
    if (!m_isServing || std::exchange(m_isWorking, true))
        return;
    while (!m_queue.isEmpty())
        m_queue.dequeue()();
    m_isWorking = false;
}

} // namespace ardeno
