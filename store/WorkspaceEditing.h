// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RemovalUndo.h"
#include "store/WorkspaceCollector.h"

namespace ardeno {

// Changes what a saved checkpoint holds of the workspace. A write that fails leaves it as it was; samples and
// checkpoints that are not in the library stay untouched, without a message.
class WorkspaceEditing final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::WorkspaceEditing)

public:
    WorkspaceEditing(Operations &operations, Library &library, RemovalUndo &removals, ExclusionRules &rules,
                     WorkspaceCollector &collector);

    QCoro::Task<Outcome> addCurrentBrowserTabs(QUuid checkpointID);
    QCoro::Task<Outcome> addCurrentWindowLayout(QUuid checkpointID);
    // Both can be undone.
    Outcome removeApp(SavedApp app, QUuid checkpointID);
    Outcome removeTab(SavedTab tab, QUuid checkpointID);

private:
    template <typename Item>
    Outcome removeItem(QUuid checkpointID, QList<Item> Checkpoint::*list, Item item);
    QCoro::Task<Outcome> addTabs(QUuid checkpointID);
    QCoro::Task<Outcome> addLayout(QUuid checkpointID);

    Operations &m_operations;
    Library &m_library;
    RemovalUndo &m_removals;
    ExclusionRules &m_rules;
    WorkspaceCollector &m_collector;
};

} // namespace ardeno
