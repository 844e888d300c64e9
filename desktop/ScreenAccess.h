// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

namespace ardeno {

// The user's consent to pictures of the screen.
class ScreenAccess {
public:
    virtual ~ScreenAccess() = default;

    // Whether pictures may be taken now; never shows anything.
    virtual bool check() = 0;
    // Asks the user once, where the desktop has such a question; returns whether pictures may be taken now.
    virtual bool ask() = 0;
};

} // namespace ardeno
