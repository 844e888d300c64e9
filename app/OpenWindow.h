// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Command.h"

namespace ardeno {

// Becomes the application with its window; returns only when that is not possible.
ExitStatus openWindow();

// Becomes the program that uses a display, with one argument or none; returns only when that is not possible.
ExitStatus becomeWindowProgram(const char *argument = nullptr);

} // namespace ardeno
