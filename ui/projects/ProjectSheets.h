// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/projects/ProjectParts.h"

namespace ardeno {

class Sheet;

// The sheet for a new project; it clears showNewProject when it goes.
Sheet *makeNewProjectSheet(const ProjectParts &parts);

// The sheet for what a project waits for; it clears editingBlocker when it goes.
Sheet *makeProjectBlockerSheet(const ProjectParts &parts, const Project &project);

// The sheet for another name.
Sheet *makeRenameSheet(const ProjectParts &parts, const Project &project);

} // namespace ardeno
