// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "model/WorkspaceRecords.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <optional>

// Which pages are open in the browsers.
namespace ardeno::WorkspaceCapture {

// The tabs that were read, and what could not be.
struct OpenTabs {
    QList<SavedTab> tabs = {};                // In the order of the browsers, then of their windows and tabs.
    std::optional<QString> warning = {};      // One sentence or more, to be stored.
    std::optional<QString> shownWarning = {}; // The same in the words of the desktop and the user's language.
    // Browsers about whose tabs nothing is known: those left out on request and those that could not be read.
    QSet<QString> unreadBrowserIDs = {};
    QStringList unreadBrowserNames = {}; // Of those that could not be read.
    // Tabs of windows that may be closed already: their browser has not written down what became of them.
    QSet<QUuid> uncertainTabIDs = {};
    QStringList uncertainBrowserNames = {};
    QSet<QString> runningBrowserIDs = {}; // Of those that were asked.
    std::optional<Date> writtenAt = {};   // When the oldest of the sources was written; absent: all were live.
};

// The browsers that are known, in the order in which they are asked.
QList<Browser> browsers(TabSource &source);

// Never throws. An excluded browser is not asked at all. Rules about websites are the caller's business.
QCoro::Task<OpenTabs> browserTabs(TabSource &source, QSet<QString> excludingAppIDs);

// One browser each, by family.
QCoro::Task<OpenTabs> chromiumTabs(TabSource &source, QString id, QString name);
QCoro::Task<OpenTabs> safariTabs(TabSource &source, QString id, QString name);
QCoro::Task<OpenTabs> firefoxTabs(TabSource &source, QString id, QString name);

// The tabs in a text of records. Records that are malformed or whose address is not safe are skipped.
QList<SavedTab> parsedTabs(const QString &records, const Browser &browser);

// Equal keys mean the same page: letter case of scheme and host and an explicit default port make no difference,
// anything else does. Absent when the tab has no safe address.
std::optional<QString> tabURLKey(const SavedTab &tab);

} // namespace ardeno::WorkspaceCapture
