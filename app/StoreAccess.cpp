// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StoreAccess.h"

#include "app/Output.h"
#include "platform/null/NullDesktop.h"

namespace ardeno {

LockedStore::LockedStore(Desktop &desktop, Purpose purpose) : m_lock(CheckpointRepository::defaultRoot())
{
    constexpr std::chrono::seconds patience(10);
    m_lock.waitFor(patience);
    m_store = std::make_unique<AppStore>(desktop);
    if (m_store->error())
        printError(*m_store->error());
}
