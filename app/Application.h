// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/BusService.h"
#include "app/CommandStore.h"
#include "model/LibraryLock.h"
#include "store/AppStore.h"

#include <functional>
#include <optional>

namespace ardeno {

// The library as an application opens it: locked first, read second.
struct OpenedLibrary {
    LibraryLock lock;
    CheckpointRepository repository;             // Which knows the file that was read.
    std::function<WorkspaceLibrary()> load = {}; // Gives once what was read, or throws Failure.
};

// Waits for a command that is at work, on a worker where something is shown. Throws Failure when the library stays
// locked.
OpenedLibrary openLibrary();

// The application, with or without windows: it holds the library, has the one store and carries out commands.
class Application final {
public:
    // The parts are but for the library. Without a display there is no quick-save panel to open.
    Application(OpenedLibrary library, BusService &bus, std::function<void()> quickSave = {}, StoreParts parts = {});

    AppStore &store() { return m_store; }

    Desktop &desktop() { return m_desktop; }

    // From now on.
    void serveCommands();

    // Lets what is being done come to its end, saves a session in progress, then leaves the event loop.
    void end();

private:
    void endWhenIdle();

    BusService &m_bus;
    LibraryLock m_lock;
    Desktop m_desktop;
    AppStore m_store;
    CommandHost m_host;
    bool m_isEnding = false;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
