// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

namespace ardeno {

// The applications that play the parts of rules on a Linux desktop, by their desktop files.
DesktopRoles linuxRoles();

} // namespace ardeno
