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
