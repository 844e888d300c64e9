// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowLayout.h"

#include <optional>

// Where a saved window goes on the displays of today. Pure.
namespace ardeno::WindowPlacement {

// In the coordinates of the displays. Absent when the saved frame is no rectangle or there is no display.
std::optional<WindowRect> fit(const SavedWindow &saved, const QList<WindowLayout::DisplayEntry> &displays,
                              quint32 mainID);

// Whether they are the same within a point.
bool isNear(const WindowRect &a, const WindowRect &b);

// Whether a window of this frame needs no move, within a point: it is where it was saved, or where fit() puts it.
bool isInPlace(const WindowRect &frame, const SavedWindow &saved, const QList<WindowLayout::DisplayEntry> &displays,
               quint32 mainID);

} // namespace ardeno::WindowPlacement
