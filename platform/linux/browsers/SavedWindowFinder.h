// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Launcher.h"
#include "platform/linux/browsers/BrowserState.h"
#include "platform/linux/running/LiveWindow.h"

#include <QCoroTask>

#include <optional>

namespace ardeno {

// An ordinary window that is open, with the number that a capture would give it.
struct NumberedWindow {
    qint64 number = 0;
    ListedWindow window = {};
};

// The index of the window that the tab was saved from: the one with the browser's own identifier, else the one with
// most of the pages that were saved from the tab's window, else the one with its number. One that is so another saved
// window is not taken. `saved` are all tabs saved from the browser.
std::optional<qsizetype> windowOfTab(const SavedTab &tab, const QList<SavedTab> &saved,
                                     const QList<NumberedWindow> &open);

// Finds the window that a tab was saved from.
class SavedWindowFinder final {
public:
    explicit SavedWindowFinder(LiveWindowList liveWindows) : m_liveWindows(std::move(liveWindows)) {}

    // `saved` are all tabs saved from its browser. Never throws.
    QCoro::Task<SavedBrowserWindow> find(SavedTab tab, QList<SavedTab> saved);

private:
    LiveWindowList m_liveWindows;
};

} // namespace ardeno
