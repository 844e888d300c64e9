// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Application.h"

#include "app/CommandLine.h"
#include "platform/MakeDesktop.h"

#include <QCoreApplication>

#include <chrono>
#include <exception>
#include <memory>
#include <utility>

namespace ardeno {

namespace {

StoreParts applicationParts(StoreParts parts, const OpenedLibrary &library, LibraryLock &lock)
{
    library.repository.setWriteCheck([&lock] { lock.ensure(); });
    parts.repository = library.repository;
    parts.loadLibrary = library.load;
    parts.seedStarterExample = true;
    return parts;
}

// Carries out a command line for another process.
QCoro::Task<CommandAnswer> answerCommand(const CommandHost &host, const Caller &caller, QStringList arguments)
{
    KeptOutput written;
    CommandContext context{.out = written, .host = &host, .caller = &caller};
    const ExitStatus status = co_await runCommandLine(context, arguments);
    co_return CommandAnswer{static_cast<int>(status), written.results(), written.errors()};
}

} // namespace

OpenedLibrary openLibrary()
{
    constexpr std::chrono::seconds patience(10);
    const QString root = CheckpointRepository::defaultRoot();
    const LibraryLock::Request request{root, LibraryLock::Kind::Application, LibraryLock::Access::Write};
    OpenedLibrary opened{.lock = LibraryLock::waitFor(request, patience), .repository = CheckpointRepository(root)};
    try {
        const auto library = std::make_shared<WorkspaceLibrary>(opened.repository.loadLibrary());
        opened.load = [library] { return std::move(*library); };
    } catch (const Failure &) {
        opened.load = [failure = std::current_exception()]() -> WorkspaceLibrary { std::rethrow_exception(failure); };
    }
    return opened;
}

Application::Application(OpenedLibrary library, BusService &bus, std::function<void()> quickSave, StoreParts parts)
    : m_bus(bus),
      m_lock(std::move(library.lock)),
      m_desktop(makeDesktop()),
      m_store(m_desktop, applicationParts(std::move(parts), library, m_lock)),
      m_host{m_store, std::move(quickSave)}
{
    m_subscriptions.watch([this] { m_desktop.screenCapture->prepareExclusion(m_store.rules.exclusions().appIDs()); },
                          m_store.rules.exclusions);
}

void Application::serveCommands()
{
    m_bus.serveCommands([this](const Caller &caller, const QStringList &arguments) {
        return answerCommand(m_host, caller, arguments);
    });
}

void Application::end()
{
    if (std::exchange(m_isEnding, true))
        return;
    m_bus.refuseCommands();
    m_subscriptions.watch([this] { endWhenIdle(); }, m_store.operations.working, m_store.recorder.recording);
}

void Application::endWhenIdle()
{
    if (m_store.operations.working())
        return;
    if (m_store.recorder.recording())
        m_store.sessions.stop();
    else
        m_bus.finishWith([] { QCoreApplication::exit(0); });
}

} // namespace ardeno
