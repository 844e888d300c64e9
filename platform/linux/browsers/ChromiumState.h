// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/browsers/BrowserState.h"

namespace ardeno::ChromiumState {

// Reads the files that the process is writing, all of its profiles together; titles that it has not written there come
// from its history. Writes and locks nothing. For a worker thread: it may wait for the disk.
BrowserState read(const BrowserProcess &process);

} // namespace ardeno::ChromiumState
