// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenAccess.h"

namespace ardeno {

// An X server shows its screen to every client; there is nobody to ask.
class X11ScreenAccess final : public ScreenAccess {
public:
    Capability availability() const override { return Capability::available(); }

    bool ask() override { return true; }

    bool openSettings() override { return false; }
};

} // namespace ardeno
