// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Application.h"

#include "app/CommandLine.h"
#include "app/Output.h"
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

Application::Application(OpenedLibrary library, BusService &bus, ApplicationActions actions, StoreParts parts)
    : m_bus(bus),
      m_lock(std::move(library.lock)),
      m_desktop(makeDesktop()),
      m_store(m_desktop, applicationParts(std::move(parts), library, m_lock)),
      m_shared(m_store, std::move(actions))
{
    m_observations.watch([this] { m_desktop.screenCapture->prepareExclusion(m_store.rules.exclusions().appIDs()); },
                         m_store.rules.exclusions);
}

void Application::end()
{
    if (std::exchange(m_isEnding, true))
        return;
    m_bus.refuseCommands();
    m_observations.watch([this] { endWhenIdle(); }, m_store.operations.working, m_store.recorder.recording);
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

CommandAnswer answerCommand(const QStringList &arguments)
{
    OutputCapture written;
    const ExitStatus status = runCommandLine(arguments);
    return {static_cast<int>(status), written.output(), written.errors()};
}

} // namespace ardeno
