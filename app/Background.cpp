// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Background.h"

#include "app/Application.h"
#include "app/BusClient.h"
#include "app/EndRequest.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

bool hasApplication()
{
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    return holder && holder->kind == LibraryLock::Kind::Application;
}

ExitStatus serve(Output &out, const QDBusConnection &connection)
{
    BusService bus(connection);
    if (!bus.begin({})) {
        BusClient::refuseStranger();
        return ExitStatus::Done; // Another application has just been quicker.
    }
    Application application(openLibrary(), bus);
    reportAtStart(out, application.store());
    const EndRequest request(connection, [&application] { application.end(); });
    application.serveCommands();
    QCoreApplication::exec();
    return ExitStatus::Done;
}

} // namespace

ExitStatus runBackground(Output &out)
{
    try {
        const QDBusConnection connection = QDBusConnection::sessionBus();
        if (!connection.isConnected())
            throw notAvailable("There is no session bus, over which Ardeno could serve commands.");
        // It serves as well.
        return hasApplication() ? ExitStatus::Done : serve(out, connection);
    } catch (const Failure &failure) {
        return report(out, failure);
    }
}

} // namespace ardeno
