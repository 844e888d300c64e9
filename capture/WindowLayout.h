// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowServer.h"
#include "model/WorkspaceRecords.h"

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

// In the desktop's own order.
QList<DisplayEntry> currentDisplays(WindowServer &server);

// The index of the display that holds the largest part of the frame, the earlier one when two hold as much. Absent
// when there is no display.
std::optional<qsizetype> bestDisplay(const WindowRect &frame, const QList<DisplayEntry> &displays);

// The windows on screen of these applications, front to back, without those of this process; what each shows is not
// filled in. Never fails: no windows and no displays give an empty list.
QList<SavedWindow> capture(const QList<SavedApp> &apps, WindowServer &server, qint64 ownProcessID);

} // namespace WindowLayout

} // namespace ardeno
