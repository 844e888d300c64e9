// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

namespace ardeno::bench {

// Checkpoints as people have them: 10 applications, 20 tabs, 12 windows and notes, about 12.7 KB of JSON each. Every
// title and address is different; applications, browsers and displays recur. The same for every call.
WorkspaceLibrary sampleLibrary(int checkpoints);

} // namespace ardeno::bench
