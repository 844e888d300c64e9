// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

namespace ardeno {

// The application without a window: holds the library and serves commands over the session bus until it is asked to end
// or the session ends. A work session in progress is stopped and saved then.
ExitStatus runBackground();

} // namespace ardeno
