// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestoreSummary.h"
#include "desktop/WindowMover.h"
#include "desktop/WindowServer.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <chrono>
#include <functional>

namespace ardeno::WindowLayout {

// Which windows go back, and how long windows are waited for.
struct RestoreRequest {
    QList<SavedWindow> windows = {};
    QSet<QString> allowedAppIDs = {}; // Windows of other applications are neither touched nor counted.
    QSet<QUuid> onlyIDs = {};         // When not empty, the others count only for telling windows apart.
    QSet<QUuid> awaitedIDs = {};      // Saved windows that this resume caused to be opened: they may come late.
    // Whether what was opened with an application has yet to show its window; without an answer the patience decides.
    std::function<bool(const QString &)> isStarting = {};
    std::chrono::milliseconds firstWait = std::chrono::milliseconds(650);
    std::chrono::milliseconds patience = std::chrono::seconds(10); // For awaited windows.
};

// Moves the windows that are certain to be the saved ones back to where they were; what is minimised, full screen,
// maximised, hung or in the user's hands is left alone, and each window left alone has its reason. Never throws.
QCoro::Task<RestoreResult> restore(RestoreRequest request, WindowMover &mover, WindowServer &server);

} // namespace ardeno::WindowLayout
