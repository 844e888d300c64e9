// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QQueue>
#include <QStringList>

#include <functional>

namespace ardeno {

class Caller;

// What a command wrote and how it ended.
struct CommandAnswer {
    int status = 0;
    QByteArray output = {};
    QByteArray errors = {};
};

// The application on the session bus. Commands are carried out one after the other, on the main thread; while one of
// them waits, and in between, whatever else the application has to do has its turn.
class BusService final : public QDBusVirtualObject {
public:
    // An action that is empty is refused.
    struct Actions {
        std::function<void()> activate = {}; // Brings the window to the front.
        std::function<void()> quickSave = {};
        std::function<void()> stopRecording = {};
    };

    explicit BusService(const QDBusConnection &connection);

    // Takes the application's name. False when another program has it.
    bool begin(Actions actions);

    // How a command is carried out for a caller, who lives until it is done.
    using Run = std::function<QCoro::Task<CommandAnswer>(const Caller &caller, const QStringList &arguments)>;

    // Commands wait until then.
    void serveCommands(Run run);

    // Refuses what has not begun and whatever is asked for from now on.
    void refuseCommands();

    // Runs after what has begun, as the last thing.
    void finishWith(const std::function<void()> &last);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    struct Task {
        std::function<QCoro::Task<void>()> carryOut = {};
        std::function<void()> refuse = [] {};
    };

    bool handleApplication(const QDBusMessage &message);
    const std::function<void()> *action(const QDBusMessage &message) const;
    void enqueue(const Task &task);
    void schedule();
    QCoro::Task<void> workOff();
    QCoro::Task<void> carryOut(QDBusMessage message);
    void refuse(const QDBusMessage &message);

    QDBusConnection m_connection;
    Actions m_actions;
    QQueue<Task> m_queue = {};
    Run m_run = {}; // Empty: nothing is carried out yet.
    bool m_isWorking = false;
    bool m_isRefusing = false;
    bool m_isFinishing = false;
};

} // namespace ardeno
