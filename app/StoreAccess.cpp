// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StoreAccess.h"

#include "app/Caller.h"
#include "app/Output.h"
#include "platform/null/NullDesktop.h"
#include "support/Finish.h"

#include <utility>

namespace ardeno {

namespace {

AppStore *applicationStore = nullptr;
ApplicationActions applicationActions;

LibraryLock lock(LockedStore::Purpose purpose)
{
    // Another command ends soon; an application goes on, and has been asked over the bus already.
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    const bool isApplication = holder && holder->kind == LibraryLock::Kind::Application;
    const std::chrono::seconds patience(isApplication ? 0 : 10);
    const auto access = purpose == LockedStore::Purpose::Read ? LibraryLock::Access::Read : LibraryLock::Access::Write;
    return LibraryLock::waitFor({CheckpointRepository::defaultRoot(), LibraryLock::Kind::Command, access}, patience);
}

void refuseWhenInterrupted()
{
    if (EndSignals::caught() != 0)
        throw Failure("Command", 5, "The command was interrupted.");
}

ExitStatus reportProblems(const Outcome &outcome)
{
    const QStringList problems = outcome.problems();
    for (const QString &sentence : problems)
        printError(sentence);
    if (!outcome && problems.isEmpty())
        printError(u"Ardeno is busy with something else. Try again when it is done."_qs);
    return outcome && problems.isEmpty() ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace

ApplicationStore::ApplicationStore(AppStore &store, ApplicationActions actions)
{
    applicationStore = &store;
    applicationActions = std::move(actions);
}

ApplicationStore::~ApplicationStore()
{
    applicationStore = nullptr;
    applicationActions = {};
}

AppStore *ApplicationStore::current()
{
    return applicationStore;
}

const ApplicationActions &ApplicationStore::actions()
{
    return applicationActions;
}

LockedStore::LockedStore(Desktop &desktop, Purpose purpose)
{
    if (ApplicationStore::current())
        return;
    m_lock = lock(purpose);
    StoreParts parts;
    parts.repository.setWriteCheck([this] {
        if (m_lock)
            m_lock->ensure();
    });
    parts.recoverSessions = m_lock->isHeld();
    parts.remindOfCopies = false; // The command that made one has named it; the window goes on doing so.
    parts.beforeWrite = refuseWhenInterrupted;
    m_store = std::make_unique<AppStore>(desktop, std::move(parts));
    if (purpose == Purpose::Write)
        m_signals.emplace(EndSignals::Again::EndAtOnce);
}

LockedStore::~LockedStore()
{
    if (m_store) {
        for (const QString &sentence : m_store->messages.sentences()) {
            if (!m_reported.contains(sentence))
                printError(sentence);
        }
    } else if (!ApplicationStore::current()->library.isLibraryRead()) // Also by now: a save reads it again.
        printError(u"The running application could not read your saved checkpoints. Existing files have been left in "
                   "place."_qs);
}

void takeTurn(AppStore &store)
{
    finish(store.operations.whenIdle());
    Caller::begin();
    finish(store.operations.whenIdle()); // Its user may have begun something else.
}

ExitStatus LockedStore::report(const Outcome &outcome)
{
    m_reported += outcome.problems();
    return m_store ? reportProblems(outcome) : ardeno::report(outcome);
}

ExitStatus report(const Outcome &outcome)
{
    for (const Remark &remark : outcome.remarks)
        printError(remark.sentence);
    return reportProblems(outcome);
}

void reportAtStart(const AppStore &store)
{
    for (const QString &sentence : store.messages.sentences())
        printError(sentence);
}

Checkpoint findCheckpoint(const AppStore &store, const QString &prefix)
{
    const QString wanted = prefix.trimmed();
    QList<Checkpoint> found;
    for (const Checkpoint &checkpoint : store.library.checkpoints()) {
        if (!wanted.isEmpty() && checkpoint.id.toString(QUuid::WithoutBraces).startsWith(wanted, Qt::CaseInsensitive))
            found.append(checkpoint);
    }
    if (found.isEmpty())
        throw Failure("Command", 1, u"There is no checkpoint “%1”."_qs.arg(prefix));
    if (found.size() > 1)
        throw Failure("Command", 2,
                      u"“%1” is the beginning of %2 checkpoints. Give more of it."_qs.arg(prefix).arg(found.size()));
    return found.first();
}

Desktop libraryOnlyDesktop()
{
    return makeNullDesktop("none", u"This command works on the library alone."_qs, {});
}

ExitStatus report(const Failure &failure)
{
    printError(failure.description());
    return failure.domain() == notAvailableDomain ? ExitStatus::NotAvailable : ExitStatus::Failed;
}

} // namespace ardeno
