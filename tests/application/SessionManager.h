// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

using SessionConnection = struct _SmsConn *;
using IceListener = struct _IceListenObj *;
using IceConnection = struct _IceConn *;

namespace ardeno {

// The session manager of a desktop with one application: it asks it to be ready for the session's end, and ends it.
// Works while events are processed.
class SessionManager final {
public:
    // What an application may ask its user before the session ends.
    enum class Questions { Any, None };
    enum class Answer { None, Ready, Cancelled };

    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    // For SESSION_MANAGER.
    QString address() const;

    // True once an application has joined and is not saving itself.
    bool isQuiet() const { return m_client && m_isQuiet; }

    void logOut(Questions questions);

    Answer answer() const { return m_answer; }

    // How the application wants to be started with the next session.
    const QStringList &restartCommand() const { return m_restartCommand; }

    // Ends the application, which has said that it is ready.
    void end();

private:
    friend struct SessionCallbacks;

    void accept(IceListener listener);

    int m_listenerCount = 0;
    IceListener *m_listeners = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> m_notifiers;
    std::vector<IceConnection> m_connections;
    SessionConnection m_client = nullptr;
    bool m_isQuiet = false;
    bool m_isLoggingOut = false;
    Answer m_answer = Answer::None;
    QStringList m_restartCommand;
};

} // namespace ardeno
