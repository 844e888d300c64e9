// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"
#include "app/EndSignals.h"
#include "model/LibraryLock.h"
#include "store/AppStore.h"

#include <optional>

namespace ardeno {

// The store as one command uses it: the application's, or one of its own, whose library is locked first and loaded
// second.
class CommandStore final {
public:
    enum class Purpose { Read, Write };

    // Throws Failure when another process holds the library. From then on a signal ends a writer tidily: nothing is
    // written any more.
    CommandStore(CommandContext &context, Desktop &desktop, Purpose purpose);
    // Prints what else a store of its own has to say by then, for instance that something could not be read.
    ~CommandStore();
    CommandStore(const CommandStore &) = delete;
    CommandStore &operator=(const CommandStore &) = delete;

    AppStore &store() { return m_store ? *m_store : m_context.host->store; }

    // Prints what went wrong in an operation; the exit status that belongs to it.
    ExitStatus report(const Outcome &outcome);

    // Lets others use the library: for a command that has read what it needs and goes on for a while.
    void release() { m_lock.reset(); }

private:
    CommandContext &m_context;
    std::optional<LibraryLock> m_lock;
    std::unique_ptr<AppStore> m_store;
    std::optional<EndSignals> m_signals;
    QStringList m_reported = {}; // Said already.
};

// In an application, lets what its user has begun come to its end first; throws Failure when the command is not wanted
// any more by then.
QCoro::Task<void> takeTurn(CommandContext &context, AppStore &store);

// The same for an operation of an application's store, with its remarks.
ExitStatus report(Output &out, const Outcome &outcome);

// Prints what a store said when it was made.
void reportAtStart(Output &out, const AppStore &store);

// The one checkpoint whose identifier begins so; throws Failure when there is none or more than one.
Checkpoint findCheckpoint(const AppStore &store, const QString &prefix);

// A desktop for commands that only work on the library: it has none of the desktop session's services.
Desktop libraryOnlyDesktop();

// Prints the failure; the exit status that belongs to it.
ExitStatus report(Output &out, const Failure &failure);

} // namespace ardeno
