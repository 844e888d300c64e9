// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

namespace ardeno {

// A desktop that offers nothing and says why: every capability is unavailable for this reason, every list is empty,
// every picture is refused. Nothing it answers could be taken for a picture or a list of a real desktop.
Desktop makeNullDesktop(const QString &session, const QString &reason, const DesktopRoles &roles);

// Only the pictures refused, for a desktop that has the rest.
std::unique_ptr<ScreenCapture> makeNullScreenCapture(const QString &reason);

} // namespace ardeno
