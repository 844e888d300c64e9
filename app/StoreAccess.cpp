// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StoreAccess.h"

#include "app/Output.h"
#include "platform/null/NullDesktop.h"

namespace ardeno {

namespace {

AppStore *applicationStore = nullptr;

LibraryLock lock(LockedStore::Purpose purpose)
{
    // Another command ends soon; an application goes on, and has been asked over the bus already.
    const auto holder = LibraryLock::holder(CheckpointRepository::defaultRoot());
    const bool isApplication = holder && holder->kind == LibraryLock::Kind::Application;
    const std::chrono::seconds patience(isApplication ? 0 : 10);
    const auto access = purpose == LockedStore::Purpose::Read ? LibraryLock::Access::Read : LibraryLock::Access::Write;
    return LibraryLock::waitFor({CheckpointRepository::defaultRoot(), LibraryLock::Kind::Command, access}, patience);
}

} // namespace

ApplicationStore::ApplicationStore(AppStore &store)
{
    applicationStore = &store;
}

ApplicationStore::~ApplicationStore()
{
    applicationStore = nullptr;
}

AppStore *ApplicationStore::current()
{
    return applicationStore;
}

LockedStore::LockedStore(Desktop &desktop, Purpose purpose)
{
    if (ApplicationStore::current())
        return;
    m_lock = lock(purpose);
    StoreParts parts;
    parts.recoverSessions = m_lock->isHeld();
    m_store = std::make_unique<AppStore>(desktop, std::move(parts));
    for (const auto &sentence : {m_store->error(), m_store->notice()}) {
        if (sentence)
            printError(*sentence);
    }
}

Checkpoint findCheckpoint(const AppStore &store, const QString &prefix)
{
    const QString wanted = prefix.trimmed().toUpper();
    QList<Checkpoint> found;
    for (const Checkpoint &checkpoint : store.checkpoints()) {
        if (!wanted.isEmpty() && uuidText(checkpoint.id).startsWith(wanted))
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
