// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/browsers/BrowserState.h"

namespace ardeno::StateReading {

// What a running browser has written down. A profile whose disk does not answer counts as unread. For a worker thread.
BrowserState read(const BrowserProcess &process, BrowserFamily family);

} // namespace ardeno::StateReading
