// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <optional>

namespace ardeno {

// A checkpoint together with the project that it belongs to: another program's library may not have it.
struct OwnedCheckpoint {
    Checkpoint checkpoint = {};
    std::optional<Project> project = {};
};

} // namespace ardeno
