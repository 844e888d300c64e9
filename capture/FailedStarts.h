// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestoreSummary.h"
#include "desktop/Desktop.h"

#include <QList>
#include <QSet>
#include <QString>

namespace ardeno::WorkspaceCapture {

// What a resume has counted as opened.
struct OpenedItems {
    QSet<QString> appIDs = {};
    QList<SavedTab> tabs = {};
    QList<SavedWindow> places = {}; // Whose folders or documents were opened.
};

// Whether an application shows what it was opened with, is known only after it was started: takes what failed out of
// the counts, and names each application, page and document of it among the failures.
void withdraw(const QList<FailedStart> &failed, const OpenedItems &opened, const DesktopRoles &roles,
              RestoreReport *report);

// What a page is called among failures.
QString pageName(const SavedTab &tab);

} // namespace ardeno::WorkspaceCapture
