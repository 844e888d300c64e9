// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestoreSummary.h"
#include "capture/ResumeControl.h"
#include "capture/WindowContents.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <chrono>
#include <functional>
#include <optional>

namespace ardeno::WindowLayout {

// Which windows go back, and how long windows are waited for.
struct RestoreRequest {
    QList<SavedWindow> windows = {};
    QSet<QString> allowedAppIDs = {}; // Windows of other applications are neither touched nor counted.
    QSet<QUuid> onlyIDs = {};         // When not empty, the others count only for telling windows apart.
    QSet<QUuid> awaitedIDs = {};      // Saved windows that this resume caused to be opened: they may come late.
    SavedPlaces places = {};          // Of the windows.
    // What there was before this resume opened anything; without it, nothing has been opened and it is asked for.
    std::optional<OpenPlaces> before = {};
    // Whether what was opened with an application has yet to show its window; without an answer the patience decides.
    std::function<bool(const QString &)> isStarting = {};
    std::chrono::milliseconds firstWait = std::chrono::milliseconds(650);
    std::chrono::milliseconds patience = std::chrono::seconds(10); // For awaited windows.
    ResumeControl control = {};
};

// Moves the windows that are certain to be the saved ones back to where they were, on their virtual desktops and as
// they stood. What the user has minimised, made full screen or maximised elsewhere, what hangs or is in the user's
// hands is left alone, and each window left alone has its reason. A window that needs no move counts as restored. The
// desktop outlives the task. Never throws.
QCoro::Task<RestoreResult> restore(RestoreRequest request, Desktop &desktop);

} // namespace ardeno::WindowLayout
