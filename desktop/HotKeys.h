// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

#include <functional>

namespace ardeno {

// Keys that reach this program from wherever the user is.
class HotKeys {
public:
    enum class Combination { ControlAltSuperS, ShiftSuperS };

    // Called on the main thread.
    struct Listener {
        std::function<void()> pressed = {};
        std::function<void(const Failure &)> lost = {}; // It ended, for instance because of another keyboard layout.
    };

    virtual ~HotKeys() = default;

    virtual Capability availability() const = 0;
    // Until the next call of this or the next function. Throws Failure when another program has these keys, and then
    // listens to none.
    virtual void listen(Combination keys, Listener listener) = 0;
    virtual void release() = 0;
};

} // namespace ardeno
