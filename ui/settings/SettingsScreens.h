// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"

namespace ardeno {

class AppStore;

// Preferences with all that opens from them, the form of a checkpoint's details and the screenshot viewer.
void addSettingsScreens(Screens *screens, AppStore &store);

} // namespace ardeno
