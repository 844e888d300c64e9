// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Output.h"

#include <functional>

namespace ardeno {

class AppStore;
class Caller;

// The application, as a command sees it that another process gave.
struct CommandHost {
    AppStore &store;
    std::function<void()> quickSave = {}; // Empty where there is no display.
};

// What one command works with. It ends before any of this does.
struct CommandContext {
    Output &out;
    const CommandHost *host = nullptr; // Null in a process of the command's own.
    const Caller *caller = nullptr;    // Who gave it to the host.
};

} // namespace ardeno
