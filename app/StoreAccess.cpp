// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StoreAccess.h"

#include "app/Output.h"
#include "platform/null/NullDesktop.h"

namespace ardeno {

namespace {

LibraryLock lock(LockedStore::Purpose purpose)
{
    constexpr std::chrono::seconds patience(10);
    const auto access = purpose == LockedStore::Purpose::Read ? LibraryLock::Access::Read : LibraryLock::Access::Write;
    return LibraryLock::waitFor({CheckpointRepository::defaultRoot(), LibraryLock::Kind::Command, access}, patience);
}

} // namespace

LockedStore::LockedStore(Desktop &desktop, Purpose purpose) : m_lock(lock(purpose))
{
    m_store = std::make_unique<AppStore>(desktop);
    if (m_store->error())
        printError(*m_store->error());
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
