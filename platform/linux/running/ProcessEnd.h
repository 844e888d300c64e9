// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <chrono>

namespace ardeno::ProcessEnd {

// Returns when that process has gone; false when it is still there after this time.
bool waitFor(qint64 process, std::chrono::milliseconds patience);

} // namespace ardeno::ProcessEnd
