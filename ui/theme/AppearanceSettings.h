// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/DesktopAppearance.h"
#include "ui/theme/AppTheme.h"

#include <memory>

namespace ardeno {

// Keeps the theme as the user wants every application to look. Where the desktop has no wish, its palette decides
// between light and dark.
class AppearanceSettings final {
public:
    // Gives the theme its first appearance.
    explicit AppearanceSettings(std::unique_ptr<DesktopAppearance> desktop);

    static Appearance appearance(const AppearanceWishes &wishes);

private:
    std::unique_ptr<DesktopAppearance> m_desktop;
};

} // namespace ardeno
