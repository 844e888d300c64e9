// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/AppStore.h"

namespace ardeno {

class Sheet;

// The sheet for a new project; it clears showNewProject when it goes.
Sheet *makeNewProjectSheet(AppStore &store);

// The sheet for what a project waits for; it clears editingBlocker when it goes.
Sheet *makeProjectBlockerSheet(AppStore &store, const Project &project);

// The sheet for another name.
Sheet *makeRenameSheet(AppStore &store, const Project &project);

} // namespace ardeno
