// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/checkpoint/CheckpointParts.h"
#include "ui/items/ItemParts.h"
#include "ui/projects/CaptureParts.h"
#include "ui/projects/CheckpointListParts.h"
#include "ui/projects/ProjectParts.h"
#include "ui/settings/PreferenceParts.h"

namespace ardeno {

class AppStore;

// What each kind of view gets of the store.
namespace ViewParts {

ProjectParts ofProjects(AppStore &store);
CheckpointListParts ofCheckpointLists(AppStore &store);
CheckpointParts ofCheckpoint(AppStore &store);
ItemParts ofItems(AppStore &store);
CaptureParts ofCapture(AppStore &store);
PreferenceParts ofPreferences(AppStore &store);

} // namespace ViewParts

} // namespace ardeno
