// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/WindowLayout.h"

#include <QStringList>

#include <optional>

// Which live window a saved one is, and where its frame goes on the displays of today. Pure.
namespace ardeno::WindowPlacement {

// The index of the live window; absent rather than a guess. `candidates` are the titles of the application's windows
// now, `savedCount` is how many windows of it were saved.
std::optional<qsizetype> matchIndex(const QString &savedTitle, const QStringList &candidates, qsizetype savedCount);

// In the coordinates of the displays. Absent when the saved frame is no rectangle or there is no display.
std::optional<WindowRect> fit(const SavedWindow &saved, const QList<WindowLayout::DisplayEntry> &displays,
                              quint32 mainID);

} // namespace ardeno::WindowPlacement
