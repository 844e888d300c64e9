// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/ProjectOperations.h"
#include "store/RemovalUndo.h"

namespace ardeno {

// The newest of what the window offers to take back: a removal from the checkpoint that is shown, or an archiving.
class LastUndo final {
public:
    LastUndo(ProjectOperations &projects, RemovalUndo &removals, const Navigation &navigation);

    bool isPossible() const { return isRemovalShown() || m_projects.lastArchiving(); }

    void undo();

private:
    enum class Kind { Removal, Archiving };

    // Nothing changes that nobody sees.
    bool isRemovalShown() const;

    ProjectOperations &m_projects;
    RemovalUndo &m_removals;
    const Navigation &m_navigation;
    Kind m_newest = Kind::Removal;
    Subscriptions m_subscriptions;
};

} // namespace ardeno
