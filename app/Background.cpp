// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Background.h"

#include "app/BusService.h"
#include "app/CommandLine.h"
#include "app/EndRequest.h"
#include "app/Output.h"
#include "app/StoreAccess.h"
#include "platform/MakeDesktop.h"
#include "support/Finish.h"

#include <QCoreApplication>

namespace ardeno {

namespace {

CommandAnswer answer(const QStringList &arguments)
{
    OutputCapture written;
    const ExitStatus status = runCommandLine(arguments);
    return {static_cast<int>(status), written.output(), written.errors()};
}

// The library, unless an application has it already, which then serves as well.
std::optional<LibraryLock> takeLibrary()
{
    constexpr std::chrono::seconds patience(10); // For a command that is at work.
    const QString root = CheckpointRepository::defaultRoot();
    const LibraryLock::Request request{root, LibraryLock::Kind::Application, LibraryLock::Access::Write};
    if (auto lock = LibraryLock::tryLock(request))
        return lock;
    const auto holder = LibraryLock::holder(root);
    if (holder && holder->kind == LibraryLock::Kind::Application)
        return std::nullopt;
    return LibraryLock::waitFor(request, patience);
}

// A connection that was lost is only noticed when it is used.
bool isDesktopGone(Desktop &desktop)
{
    desktop.windowServer->displays();
    return !desktop.windowServer->availability().isAvailable();
}

ExitStatus serve(const QDBusConnection &connection)
{
    Desktop desktop = makeDesktop();
    AppStore store(desktop);
    for (const auto &sentence : {store.error(), store.notice()}) {
        if (sentence)
            printError(*sentence);
    }
    const ApplicationStore shared(store);
    const auto stopRecording = [&store] { finish(store.stop()); };
    BusService service(connection, {.run = answer, .activate = {}, .stopRecording = stopRecording});
    if (!service.begin()) {
        printError(u"Another program has the name org.ardeno.Ardeno on the session bus."_qs);
        return ExitStatus::Failed;
    }
    const auto end = [&] {
        service.finishWith([&store] {
            finish(store.stop());
            QCoreApplication::quit();
        });
    };
    const EndRequest request(connection, end);
    Observations observations;
    observations.watch([&] { desktop.screenCapture->prepareExclusion(store.exclusions().appIDs()); }, store.exclusions);
    // A recording that breaks off with the display is the end of the desktop's session, too.
    observations.watch(
        [&] {
            if (store.recording() && store.error() && isDesktopGone(desktop))
                end();
        },
        store.error);
    QCoreApplication::exec();
    return ExitStatus::Done;
}

} // namespace

ExitStatus runBackground()
{
    try {
        const QDBusConnection connection = QDBusConnection::sessionBus();
        if (!connection.isConnected())
            throw notAvailable("There is no session bus, over which Ardeno could serve commands.");
        const std::optional<LibraryLock> lock = takeLibrary();
        return lock ? serve(connection) : ExitStatus::Done;
    } catch (const Failure &failure) {
        return report(failure);
    }
}

} // namespace ardeno
