// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/LastUndo.h"

namespace ardeno {

LastUndo::LastUndo(AppStore &store) : m_store(store)
{
    m_observations.watch([this] { m_newest = Kind::Removal; }, store.lastRemoval);
    m_observations.watch([this] { m_newest = Kind::Archiving; }, store.lastArchiving);
}

bool LastUndo::isRemovalShown() const
{
    const std::optional<WorkspaceRemoval> &removal = m_store.lastRemoval();
    return removal && removal->checkpointID == m_store.selection();
}

void LastUndo::undo()
{
    const bool isArchiving = m_store.lastArchiving() && (m_newest == Kind::Archiving || !isRemovalShown());
    if (isArchiving)
        m_store.undoArchiving();
    else if (isRemovalShown())
        m_store.undoWorkspaceRemoval();
}

} // namespace ardeno
