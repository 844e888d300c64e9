// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowLayout.h"

#include <optional>

// What is to be done with a live window so that it is where and as the saved one was. Pure.
namespace ardeno::WindowLayout {

// What windows stand on, and which of them the user works with.
struct WindowScene {
    QList<DisplayEntry> displays = {};
    quint32 mainID = 0;
    QList<QString> desktops = {}; // The names of the virtual ones.
    quint32 activeWindow = 0;
};

struct WindowTarget {
    std::optional<WindowMove> move = {}; // Absent: the saved frame is none.
    bool isReached = false;              // The window is there.
    bool isDesktopGone = false;          // There is no such virtual desktop any more.
    bool isInUse = false;                // The user works with it, so that it stays in sight.
};

// A window that came with this resume becomes as it was saved. One that was there before is the user's: what it is
// beside what was saved stays, and nothing takes it out of sight while it is worked with.
WindowTarget targetOf(const SavedWindow &saved, const MovableWindow &window, bool isNew, const WindowScene &scene);

} // namespace ardeno::WindowLayout
