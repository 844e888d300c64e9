// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace ardeno {

// What resuming a checkpoint would do, decided before anything is opened. Every list is in saved order.
struct RestorePlan {
    QList<SavedApp> activeApps = {};
    QList<SavedApp> appsToOpen = {};
    QList<SavedApp> unavailableApps = {}; // Neither running nor installed.
    QList<SavedTab> activeTabs = {};      // Their page is open now.
    QList<SavedTab> tabsToOpen = {};      // The first of each page that is not open.
    QList<SavedTab> duplicateTabs = {};   // The later ones of the pages in tabsToOpen.
    QList<SavedTab> unverifiedTabs = {};  // Nobody knows whether their browser has them open.
    QList<SavedTab> unavailableTabs = {}; // Without a safe address.
    std::optional<QString> tabCheckWarning = {};

    bool operator==(const RestorePlan &) const = default;
};

// What a resume opened, and what it did not.
struct RestoreOutcome {
    qint64 openedApps = 0;
    qint64 openedTabs = 0;
    qint64 alreadyActive = 0;     // Applications and tabs.
    QStringList unavailable = {}; // The names of applications that are not installed and of pages without an address.
    QStringList failures = {};    // Each names the application or page that failed.

    bool operator==(const RestoreOutcome &) const = default;
};

namespace WorkspaceCapture {

// The workspace as it is at the moment of the plan.
struct PresentWorkspace {
    QSet<QString> runningAppIDs = {};
    QSet<QString> installedAppIDs = {};   // Those that can be opened by their identifier.
    QSet<QString> openPageKeys = {};      // tabURLKey of each page open in a browser.
    QSet<QString> uncertainPageKeys = {}; // Of those that a browser lists and may have closed.
    QSet<QString> unreadBrowserIDs = {};  // Browsers whose open pages are not known.
};

// Pure; leaves tabCheckWarning absent.
RestorePlan restorePlan(const QList<SavedApp> &apps, const QList<SavedTab> &tabs, const PresentWorkspace &present);

} // namespace WorkspaceCapture

} // namespace ardeno
