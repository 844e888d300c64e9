// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/running/LiveWindow.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <memory>

namespace ardeno {

// The applications' windows on all desktops of the desktop session, minimised ones too.
LiveWindowList x11LiveWindows(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries);

} // namespace ardeno
