// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "platform/linux/common/LiveWindows.h"

#include <QCoroTask>

#include <optional>

namespace ardeno {

// Finds the window that a tab was saved from. The browser numbers its windows anew with every start, so the number
// means something only while the same browser still runs.
class SavedWindowFinder final {
public:
    explicit SavedWindowFinder(LiveWindowList liveWindows) : m_liveWindows(std::move(liveWindows)) {}

    // The window server's number of it; absent unless it is certain. Never throws.
    QCoro::Task<std::optional<quint32>> find(SavedTab tab);

private:
    LiveWindowList m_liveWindows;
};

} // namespace ardeno
