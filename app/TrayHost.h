// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

#include <QDBusMessage>

namespace ardeno::trayHost {

// Who knows the hosts that show tray items; its interface has the same name.
inline constexpr const char *watcher = "org.kde.StatusNotifierWatcher";
inline constexpr const char *path = "/StatusNotifierWatcher";

// The question whether there is a host; the answer is a variant of a boolean.
QDBusMessage question();

// Asks it and waits for the answer.
Capability availability();

} // namespace ardeno::trayHost
