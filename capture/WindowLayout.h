// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureExclusions.h"
#include "desktop/Desktop.h"
#include "model/WorkspaceRecords.h"

#include <QCoroTask>
#include <QList>

#include <optional>

namespace ardeno {

// Where the windows of a checkpoint's applications stand.
namespace WindowLayout {

// What placing a window needs to know of a display.
struct DisplayEntry {
    quint32 id = 0;
    WindowRect usableFrame = {};

    bool operator==(const DisplayEntry &) const = default;
};

// The index of the display that holds the largest part of the frame, the earlier one when two hold as much. Absent
// when there is no display.
std::optional<qsizetype> bestDisplay(const WindowRect &frame, const QList<DisplayEntry> &displays);

// The windows of these applications, front to back, without those of this process, also those that are minimised or on
// other desktops; what each shows is not filled in. Never fails: no windows and no displays give an empty list.
QList<SavedWindow> windows(const QList<SavedApp> &apps, WindowServer &server, qint64 ownProcessID);

// The path that one of the locations gives for this window: the one of the very window, else the one of its title
// when no other location has this title. A title that is empty or ambiguous gives none, and of locations with an
// owner only those of the window's own process count.
std::optional<QString> location(const SavedWindow &window, const QList<WindowLocation> &locations);

// The same windows as `windows()`, each with the folder or the document it shows where that is certain. A window of a
// browser has a title only when it certainly shows an ordinary page that the rules leave in. The windows are read
// before the first wait. The parts of the desktop outlive the task. Never throws.
QCoro::Task<QList<SavedWindow>> capture(QList<SavedApp> apps, const Desktop &desktop, CaptureExclusions rules,
                                        qint64 ownProcessID);

} // namespace WindowLayout

} // namespace ardeno
