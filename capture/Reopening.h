// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/FailedStarts.h"
#include "capture/OpenedPages.h"
#include "capture/RestorePlan.h"
#include "capture/ResumeControl.h"
#include "desktop/Desktop.h"

#include <QCoroTask>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <QUuid>

#include <chrono>

namespace ardeno::WorkspaceCapture {

// What a resume may look at and use; all of it outlives the resume.
struct ReopeningTools {
    Desktop &desktop;
    OpenedPages &openedPages;
    QSet<QString> excludedAppIDs = {}; // Browsers that are not read.
    ResumeControl control = {};
};

// The plan for a checkpoint and the workspace of this moment, with what could not be checked as its warning.
QCoro::Task<RestorePlan> presentPlan(QList<SavedApp> apps, QList<SavedTab> tabs, ReopeningTools tools);

// What the user chose.
struct ReopenRequest {
    RestorePlan plan = {};
    QSet<QString> appIDs = {};
    QSet<QUuid> tabIDs = {};
    QHash<QString, QStringList> pathsByApp = {}; // What an application is opened with, so that it has no empty window.
    std::chrono::milliseconds wait = std::chrono::milliseconds(300); // Before the tabs are looked at again.
};

struct Reopened {
    RestoreOutcome outcome = {};
    QSet<QString> startedAppIDs = {};
    OpenedItems opened = {}; // What the outcome counts.
};

// Opens the chosen applications that still do not run, then those chosen tabs whose page did not open meanwhile. Never
// throws; nothing comes to the front.
QCoro::Task<Reopened> reopen(ReopenRequest request, ReopeningTools tools);

} // namespace ardeno::WorkspaceCapture
