// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/SessionManager.h"

#include "tests/Printing.h"

#include <array>
#include <csignal>
#include <cstdlib>

// These headers define macros that others would trip over.
#include <X11/SM/SMlib.h>

namespace ardeno {

// What the library calls; the pointer is the session manager.
struct SessionCallbacks {
    static SessionManager &manager(SmPointer data) { return *static_cast<SessionManager *>(data); }

    static Status registerClient(SmsConn connection, SmPointer, char *previousId)
    {
        std::free(previousId);
        char *id = SmsGenerateClientID(connection);
        SmsRegisterClientReply(connection, id);
        std::free(id);
        // Whoever is new is asked once, so that it can be started again.
        SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
        return 1;
    }

    static void interactRequest(SmsConn connection, SmPointer, int) { SmsInteract(connection); }

    static void interactDone(SmsConn connection, SmPointer data, Bool isCancelled)
    {
        if (!isCancelled)
            return;
        manager(data).m_answer = SessionManager::Answer::Cancelled;
        SmsShutdownCancelled(connection);
    }

    static void saveYourselfDone(SmsConn connection, SmPointer data, Bool)
    {
        SessionManager &to = manager(data);
        if (!to.m_isLoggingOut)
            SmsSaveComplete(connection);
        else if (to.m_answer == SessionManager::Answer::None)
            to.m_answer = SessionManager::Answer::Ready;
        to.m_isQuiet = true;
    }

    static void closeConnection(SmsConn connection, SmPointer data, int count, char **reasons)
    {
        SmFreeReasons(count, reasons);
        manager(data).m_client = nullptr;
        manager(data).m_isLoggingOut = false; // The next one begins a session.
        IceConn ice = SmsGetIceConnection(connection);
        SmsCleanUp(connection);
        IceSetShutdownNegotiation(ice, False);
    }

    static void setProperties(SmsConn, SmPointer data, int count, SmProp **properties)
    {
        for (int at = 0; at < count; ++at) {
            const SmProp &property = *properties[at];
            QStringList words;
            for (int word = 0; word < property.num_vals; ++word)
                words << QString::fromUtf8(static_cast<const char *>(property.vals[word].value),
                                           property.vals[word].length);
            if (qstrcmp(property.name, SmRestartCommand) == 0)
                manager(data).m_restartCommand = words;
            SmFreeProperty(properties[at]);
        }
        std::free(properties);
    }

    static void deleteProperties(SmsConn, SmPointer, int count, char **names)
    {
        for (int at = 0; at < count; ++at)
            std::free(names[at]);
        std::free(names);
    }

    static Status newClient(SmsConn connection, SmPointer data, unsigned long *mask, SmsCallbacks *to, char **)
    {
        manager(data).m_client = connection;
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
                SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
                SmsGetPropertiesProcMask;
        to->register_client = {&registerClient, data};
        to->interact_request = {&interactRequest, data};
        to->interact_done = {&interactDone, data};
        to->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, data};
        to->save_yourself_phase2_request = {[](SmsConn asking, SmPointer) { SmsSaveYourselfPhase2(asking); }, data};
        to->save_yourself_done = {&saveYourselfDone, data};
        to->close_connection = {&closeConnection, data};
        to->set_properties = {&setProperties, data};
        to->delete_properties = {&deleteProperties, data};
        to->get_properties = {[](SmsConn asking, SmPointer) { SmsReturnProperties(asking, 0, nullptr); }, data};
        return 1;
    }
};

SessionManager::SessionManager()
{
    // An application that is gone must not end this process, as it would otherwise.
    IceSetIOErrorHandler([](IceConn) {});
    std::signal(SIGPIPE, SIG_IGN);
    static const auto letIn = [](char *) -> Bool { return True; };
    std::array<char, 256> problem{};
    REQUIRE(
        SmsInitialize("Ardeno tests", "1", &SessionCallbacks::newClient, this, letIn, problem.size(), problem.data()));
    REQUIRE(IceListenForConnections(&m_listenerCount, &m_listeners, problem.size(), problem.data()));
    for (int at = 0; at < m_listenerCount; ++at) {
        IceListenObj listener = m_listeners[at];
        IceSetHostBasedAuthProc(listener, letIn);
        auto notifier =
            std::make_unique<QSocketNotifier>(IceGetListenConnectionNumber(listener), QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [=, this] { accept(listener); });
        m_notifiers.push_back(std::move(notifier));
    }
}

SessionManager::~SessionManager()
{
    m_notifiers.clear();
    for (IceConn connection : m_connections)
        IceCloseConnection(connection);
    IceFreeListenObjs(m_listenerCount, m_listeners);
}

QString SessionManager::address() const
{
    char *list = IceComposeNetworkIdList(m_listenerCount, m_listeners);
    QString address = QString::fromLatin1(list);
    std::free(list);
    return address;
}

void SessionManager::accept(IceListener listener)
{
    IceAcceptStatus status = IceAcceptFailure;
    IceConn connection = IceAcceptConnection(listener, &status);
    if (!connection)
        return;
    while (IceConnectionStatus(connection) == IceConnectPending)
        IceProcessMessages(connection, nullptr, nullptr);
    m_connections.push_back(connection);
    auto notifier = std::make_unique<QSocketNotifier>(IceConnectionNumber(connection), QSocketNotifier::Read);
    QSocketNotifier *own = notifier.get();
    QObject::connect(own, &QSocketNotifier::activated, own, [connection, own] {
        if (IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess)
            own->setEnabled(false);
    });
    m_notifiers.push_back(std::move(notifier));
}

void SessionManager::logOut(Questions questions)
{
    REQUIRE(m_client);
    m_isLoggingOut = true;
    m_isQuiet = false;
    m_answer = Answer::None;
    SmsSaveYourself(m_client, SmSaveBoth, True, questions == Questions::Any ? SmInteractStyleAny : SmInteractStyleNone,
                    False);
}

void SessionManager::end()
{
    SmsDie(m_client);
}

} // namespace ardeno
