// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "support/Date.h"

#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// A page that a browser wrote down as open.
struct ListedTab {
    QString url = {};
    QString title = {}; // Empty when the browser has not written one.

    bool operator==(const ListedTab &) const = default;
};

// A browser window as the browser wrote it down.
struct ListedWindow {
    std::optional<QString> id = {};       // The browser's own identifier; Firefox writes none.
    std::optional<WindowRect> frame = {}; // In the desktop's coordinates.
    bool isAtFrame = true;                // False: maximised, minimised or full screen, so not where the frame says.
    bool isOrdinary = true;               // False: a popup or the window of a single app; only counted.
    bool isCurrent = true;                // False: what is written now says nothing of it, and what was written before.
    qsizetype selectedTab = 0;            // Index into the tabs; may be out of range.
    QList<ListedTab> tabs = {};

    bool operator==(const ListedWindow &) const = default;
};

// What the profiles of one running browser hold open, in the order of creation.
struct BrowserState {
    QList<ListedWindow> windows = {};
    std::optional<Date> writtenAt = {}; // Of the oldest of the files read.
    qsizetype readProfiles = 0;
    qsizetype unreadProfiles = 0; // Their files are missing, damaged or encrypted.

    bool operator==(const BrowserState &) const = default;
};

} // namespace ardeno
