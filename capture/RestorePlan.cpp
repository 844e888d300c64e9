// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/RestorePlan.h"

#include "capture/BrowserTabs.h"

namespace ardeno {

namespace {

using WorkspaceCapture::PresentWorkspace;

// A tab that names no browser is as old as the first format of the library, which knew only this one.
constexpr auto browserOfOldTabs = "com.google.Chrome";

QList<SavedApp> &place(RestorePlan &plan, const SavedApp &app, const PresentWorkspace &present)
{
    if (present.runningAppIDs.contains(app.id))
        return plan.activeApps;
    return present.installedAppIDs.contains(app.id) ? plan.appsToOpen : plan.unavailableApps;
}

QList<SavedTab> &place(RestorePlan &plan, const SavedTab &tab, const PresentWorkspace &present, QSet<QString> &planned)
{
    const auto key = WorkspaceCapture::tabURLKey(tab);
    if (!key)
        return plan.unavailableTabs;
    if (present.unreadBrowserIDs.contains(tab.browserID.value_or(browserOfOldTabs)))
        return plan.unverifiedTabs;
    if (present.openPageKeys.contains(*key))
        return plan.activeTabs;
    if (present.uncertainPageKeys.contains(*key))
        return plan.unverifiedTabs;
    if (planned.contains(*key))
        return plan.duplicateTabs;
    planned.insert(*key);
    return plan.tabsToOpen;
}

} // namespace

RestorePlan WorkspaceCapture::restorePlan(const QList<SavedApp> &apps, const QList<SavedTab> &tabs,
                                          const PresentWorkspace &present)
{
    RestorePlan plan;
    for (const SavedApp &app : apps)
        place(plan, app, present).append(app);
    QSet<QString> planned;
    for (const SavedTab &tab : tabs)
        place(plan, tab, present, planned).append(tab);
    return plan;
}

} // namespace ardeno
