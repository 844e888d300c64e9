// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QQueue>
#include <QStringList>

#include <functional>

namespace ardeno {

// What a command wrote and how it ended.
struct CommandAnswer {
    int status = 0;
    QByteArray output = {};
    QByteArray errors = {};
};

// The application on the session bus. Commands are carried out one after the other, on the main thread, also while one
// of them waits for the system. In between, whatever else the application has to do has its turn.
class BusService final : public QDBusVirtualObject {
public:
    // An action that is empty is refused.
    struct Actions {
        std::function<CommandAnswer(const QStringList &)> run = {};
        std::function<void()> activate = {}; // Brings the window to the front.
        std::function<void()> quickSave = {};
        std::function<void()> stopRecording = {};
    };

    explicit BusService(const QDBusConnection &connection);

    // Takes the application's name. False when another program has it.
    bool begin(Actions actions);

    // Commands wait until the library is open.
    void serveCommands();

    // Refuses what has not begun and whatever is asked for from now on.
    void refuseCommands();

    // Runs after what has begun, as the last thing.
    void finishWith(const std::function<void()> &last);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    struct Task {
        std::function<void()> carryOut = {};
        std::function<void()> refuse = [] {};
    };

    bool handleApplication(const QDBusMessage &message);
    const std::function<void()> *action(const QDBusMessage &message) const;
    void enqueue(const Task &task);
    void schedule();
    void workOff();
    void carryOut(const QDBusMessage &message);
    void refuse(const QDBusMessage &message);

    QDBusConnection m_connection;
    Actions m_actions;
    QQueue<Task> m_queue = {};
    bool m_isServing = false;
    bool m_isWorking = false;
    bool m_isRefusing = false;
    bool m_isFinishing = false;
};

} // namespace ardeno
