// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Screens.h"

namespace ardeno {

// Preferences with all that opens from them, the form of a checkpoint's details and the screenshot viewer.
void addSettingsScreens(Screens *screens);

} // namespace ardeno
