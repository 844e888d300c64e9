// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CommandStore.h"

#include "app/Caller.h"
#include "platform/null/NullDesktop.h"

#include <utility>

namespace ardeno {

namespace {

LibraryLock lock(CommandStore::Purpose purpose)
{
    // Another command ends soon; an application goes on, and has been asked over the bus already.
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    const bool isApplication = holder && holder->kind == LibraryLock::Kind::Application;
    const std::chrono::seconds patience(isApplication ? 0 : 10);
    const auto access = purpose == CommandStore::Purpose::Read ? LibraryLock::Access::Read : LibraryLock::Access::Write;
    return LibraryLock::waitFor({CheckpointRepository::defaultRoot(), LibraryLock::Kind::Command, access}, patience);
}

void refuseWhenInterrupted()
{
    if (EndSignals::caught() != 0)
        throw Failure("Command", 5, "The command was interrupted.");
}

ExitStatus reportProblems(Output &out, const Outcome &outcome)
{
    const QStringList problems = outcome.problems();
    for (const QString &sentence : problems)
        out.printError(sentence);
    if (!outcome && problems.isEmpty())
        out.printError(u"Ardeno is busy with something else. Try again when it is done."_qs);
    return outcome && problems.isEmpty() ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace

CommandStore::CommandStore(CommandContext &context, Desktop &desktop, Purpose purpose) : m_context(context)
{
    if (m_context.host)
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

CommandStore::~CommandStore()
{
    if (m_store) {
        for (const QString &sentence : m_store->messages.sentences()) {
            if (!m_reported.contains(sentence))
                m_context.out.printError(sentence);
        }
    } else if (!m_context.host->store.library.isLibraryRead()) // Also by now: a save reads it again.
        m_context.out.printError(
            u"The running application could not read your saved checkpoints. Existing files have been left in "
            "place."_qs);
}

QCoro::Task<void> takeTurn(CommandContext &context, AppStore &store)
{
    co_await store.operations.whenIdle();
    if (context.caller)
        co_await context.caller->begin();
    co_await store.operations.whenIdle(); // Its user may have begun something else.
}

ExitStatus CommandStore::report(const Outcome &outcome)
{
    m_reported += outcome.problems();
    return m_store ? reportProblems(m_context.out, outcome) : ardeno::report(m_context.out, outcome);
}

ExitStatus report(Output &out, const Outcome &outcome)
{
    for (const Remark &remark : outcome.remarks)
        out.printError(remark.sentence);
    return reportProblems(out, outcome);
}

void reportAtStart(Output &out, const AppStore &store)
{
    for (const QString &sentence : store.messages.sentences())
        out.printError(sentence);
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

ExitStatus report(Output &out, const Failure &failure)
{
    out.printError(failure.description());
    return failure.domain() == notAvailableDomain ? ExitStatus::NotAvailable : ExitStatus::Failed;
}

} // namespace ardeno
