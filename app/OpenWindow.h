// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

namespace ardeno {

// Becomes the application with its window; returns only when that is not possible.
ExitStatus openWindow();

} // namespace ardeno
