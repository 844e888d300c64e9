// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main/LastUndo.h"

namespace ardeno {

LastUndo::LastUndo(ProjectOperations &projects, RemovalUndo &removals, const Navigation &navigation)
    : m_projects(projects), m_removals(removals), m_navigation(navigation)
{
    m_subscriptions.watch([this] { m_newest = Kind::Removal; }, removals.lastRemoval);
    m_subscriptions.watch([this] { m_newest = Kind::Archiving; }, projects.lastArchiving);
}

bool LastUndo::isRemovalShown() const
{
    const std::optional<WorkspaceRemoval> &removal = m_removals.lastRemoval();
    return removal && removal->checkpointID == m_navigation.selection();
}

void LastUndo::undo()
{
    const bool isArchiving = m_projects.lastArchiving() && (m_newest == Kind::Archiving || !isRemovalShown());
    if (isArchiving)
        m_projects.undoArchiving();
    else if (isRemovalShown())
        m_removals.undoWorkspaceRemoval();
}

} // namespace ardeno
