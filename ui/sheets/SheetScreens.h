// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"

namespace ardeno {

class AppStore;

// Adds the screens for saving, recording, resuming and what a checkpoint holds.
void addSheetScreens(Screens &screens, AppStore &store);

} // namespace ardeno
