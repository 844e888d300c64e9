// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "desktop/DesktopAppearance.h"

#include <chrono>

namespace ardeno {

// The desktop of this desktop session, chosen from the environment: X11, or the null desktop with the reason why there
// is none. Never fails.
Desktop makeDesktop();

// How programs shall look, which a window wants to know before the desktop is made.
std::unique_ptr<DesktopAppearance> makeDesktopAppearance();

// Whether a program with windows can start here.
bool isDisplayReachable();

// Returns when that process has gone; false when it is still there after this time.
bool waitForProcessEnd(qint64 process, std::chrono::milliseconds patience);

// Where applications belong on this system; empty where that is anywhere.
QString applicationsFolder();

} // namespace ardeno
