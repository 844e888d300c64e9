// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/RestorePlan.h"

#include "capture/RestoreSummary.h"
#include "tests/Printing.h"
#include "tests/support/Tabs.h"

using namespace ardeno;

namespace {

SavedTab tab(const QString &url, const std::optional<QString> &browser = "org.mozilla.firefox")
{
    SavedTab tab;
    tab.title = url;
    tab.url = url;
    tab.browserID = browser;
    return tab;
}

} // namespace

TEST_CASE("applications are sorted into running, installed and missing ones, in saved order")
{
    const QList<SavedApp> apps = {{"b", "B"}, {"gone", "Gone"}, {"a", "A"}, {"c", "C"}, {"", "Nobody"}};
    const auto plan = WorkspaceCapture::restorePlan(
        apps, {}, {.runningAppIDs = {"a", "unrelated"}, .installedAppIDs = {"a", "b", "c"}});
    CHECK(plan.activeApps == QList<SavedApp>{{"a", "A"}});
    CHECK(plan.appsToOpen == QList<SavedApp>{{"b", "B"}, {"c", "C"}});
    CHECK(plan.unavailableApps == QList<SavedApp>{{"gone", "Gone"}, {"", "Nobody"}});
}

TEST_CASE("each saved tab lands in exactly one list, and no page is opened twice")
{
    const QList<SavedTab> tabs = {
        tab("https://a.example/"),
        tab("HTTPS://A.example:443/"),                     // The same page again.
        tab("https://a.example/#part"),                    // Another page.
        tab("http://open.example:80/x"),                   // Open, written without its port.
        tab("http://open.example/x", "com.brave.Browser"), // Open in whichever browser.
        tab("file:///etc/passwd"),
        tab("javascript:alert(1)"),
        tab("https://unread.example/", "com.brave.Unread"),
        tab("https://a.example/", "com.brave.Unread"), // Not known to be a repetition either.
        tab("https://old.example/", std::nullopt),
        tab("https://closed.example/"), // Listed by a browser that may have closed it.
    };
    WorkspaceCapture::PresentWorkspace present;
    present.openPageKeys = {"http://open.example/x"};
    present.uncertainPageKeys = {"https://closed.example/", "http://open.example/x"};
    present.unreadBrowserIDs = {"com.brave.Unread"};

    const auto plan = WorkspaceCapture::restorePlan({}, tabs, present);

    CHECK(addresses(plan.tabsToOpen) ==
          QStringList{"https://a.example/", "https://a.example/#part", "https://old.example/"});
    CHECK(addresses(plan.duplicateTabs) == QStringList{"HTTPS://A.example:443/"});
    CHECK(addresses(plan.activeTabs) == QStringList{"http://open.example:80/x", "http://open.example/x"});
    CHECK(addresses(plan.unverifiedTabs) ==
          QStringList{"https://unread.example/", "https://a.example/", "https://closed.example/"});
    CHECK(addresses(plan.unavailableTabs) == QStringList{"file:///etc/passwd", "javascript:alert(1)"});
    CHECK_FALSE(plan.tabCheckWarning.has_value());

    present.unreadBrowserIDs = {"com.google.Chrome"};
    CHECK(addresses(WorkspaceCapture::restorePlan({}, tabs, present).unverifiedTabs) ==
          QStringList{"https://old.example/", "https://closed.example/"});
}

TEST_CASE("a resume is summed up in one sentence that names only what there was")
{
    RestoreReport report;
    report.outcome = {.openedApps = 0, .openedTabs = 0, .alreadyActive = 7};
    CHECK(RestoreSummary::text(report) == u"Workspace restored · 0 opened · 7 already active"_qs);

    report.layout = RestoreResult{};
    CHECK(RestoreSummary::text(report) ==
          u"Workspace restored · 0 opened · 7 already active · 0 window positions restored"_qs);

    report.layout->accessibilityRequired = true;
    report.outcome = {.openedApps = 2, .openedTabs = 3, .alreadyActive = 0, .unavailable = {"Gone"}};
    report.folders = 1;
    report.viewerDocuments = 1;
    report.documents = 1;
    CHECK(RestoreSummary::text(report) ==
          u"Workspace restored · 5 opened · 0 already active · 1 unavailable · 0 window positions restored · window "
          "positioning needs permission · 1 Finder location restored · 1 Preview document restored · 1 document "
          "restored"_qs);

    report.layout = RestoreResult{.restoredCount = 4, .skippedCount = 2};
    report.folders = 2;
    report.viewerDocuments = 3;
    report.documents = 4;
    report.outcome.failures = {"Viewer"};
    CHECK(
        RestoreSummary::text(report) ==
        u"Workspace restored · 5 opened · 0 already active · 1 unavailable · 4 window positions restored · 2 Finder "
        "locations restored · 3 Preview documents restored · 4 documents restored · 1 failed · 2 windows not placed"_qs);
}
