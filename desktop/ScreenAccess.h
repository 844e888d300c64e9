// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

namespace ardeno {

// The user's consent to pictures of the screen.
class ScreenAccess {
public:
    virtual ~ScreenAccess() = default;

    // Whether pictures may be taken now, with the reason where they never can be; never shows anything.
    virtual Capability availability() const = 0;
    // Asks the user once, where the desktop has such a question; returns whether pictures may be taken now.
    virtual bool ask() = 0;
    // Shows where the consent is given and taken back; false when this desktop has no such place.
    virtual bool openSettings() = 0;

    bool check() const { return availability().isAvailable(); }
};

} // namespace ardeno
