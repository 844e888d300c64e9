// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/WorkspaceCollector.h"

namespace ardeno {

// Captures the workspace once more at the end of a work session.
class SessionEnd final {
public:
    // The note of a checkpoint that was captured so begins with this.
    static const QString note;

    SessionEnd(Desktop &desktop, const Library &library, ExclusionRules &rules, WorkspaceCollector &collector);

    // Where it cannot be captured the checkpoint keeps what it has, and says so.
    QCoro::Task<void> capture(Checkpoint *checkpoint, bool withTabs);

private:
    QCoro::Task<void> captureWorkspace(Checkpoint *checkpoint, bool withTabs);

    Desktop &m_desktop;
    const Library &m_library;
    ExclusionRules &m_rules;
    WorkspaceCollector &m_collector;
};

} // namespace ardeno
