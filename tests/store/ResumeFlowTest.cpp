// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

const QString chrome = "com.google.Chrome";

// A checkpoint of an editor that runs, a viewer that does not and an application that is gone.
struct ResumeFixture : StoreFixture {
    Checkpoint checkpoint;

    ResumeFixture()
    {
        memory.installed = {{"org.editor", "Editor"}, {"viewer", "Viewer"}, {"files", "Files"}, {chrome, "Chrome"}};
        desktop.roles.documentViewerIDs = {"viewer"};
        checkpoint.apps = {{"org.editor", "Editor"}, {"viewer", "Viewer"}, {"gone", "Gone"}};
        checkpoint.windows = QList<SavedWindow>();
    }

    SavedTab &addTab(const QString &url, const QString &window = {})
    {
        SavedTab tab{.title = "Page " + url, .url = url, .window = 1, .browserID = chrome};
        if (!window.isEmpty())
            tab.browserWindowID = window;
        checkpoint.tabs.append(tab);
        return checkpoint.tabs.last();
    }

    SavedWindow &addWindow(const QString &app, const QString &title)
    {
        checkpoint.windows->append({.appID = app, .appName = app, .title = title, .frame = {50, 60, 500, 400}});
        return checkpoint.windows->last();
    }

    QString existing(const QString &name)
    {
        const QString path = home.filePath(name);
        writeFile(path, "content");
        return QFileInfo(path).canonicalFilePath();
    }

    RestoreReport resume(bool layout = false)
    {
        return blockOn(store().resumes.restore(checkpoint, ResumeSelection::missing, layout)).report;
    }
};

} // namespace

TEST_CASE_FIXTURE(ResumeFixture, "a resume opens what is missing, and a second one right after opens nothing")
{
    memory.tabRecords[chrome] = u"1\u001f7\u001fhttps://open.example/\u001fOpen\u001e"_qs;
    addTab("https://open.example:443/");
    addTab("https://a.example/%7euser?q=\"x\"", "7");
    addTab("https://a.example/2", "7");
    addTab("https://b.example/", "8");
    addTab("https://b.example/", "8");
    addTab("file:///etc/passwd");
    checkpoint.tabs[1].window = checkpoint.tabs[2].window = 2;
    using State = SavedBrowserWindow::State;
    memory.savedWindows = {{1, {State::Missing}}, {2, {State::Open, 7}}};
    memory.whenOpened = [&](const QString &entry) {
        if (entry == "app viewer")
            memory.addApplication("viewer", "Viewer", {0, 0, 300, 300});
    };

    const RestoreReport report = resume();

    CHECK(memory.opened == QStringList{"app viewer", "window 7 https://a.example/%7euser?q=\"x\" https://a.example/2",
                                       "new com.google.Chrome https://b.example/"});
    CHECK(memory.savedPagesTold == 6); // Those that are open or cannot be opened tell windows apart, too.
    CHECK(report.outcome == RestoreOutcome{.openedApps = 1,
                                           .openedTabs = 3,
                                           .alreadyActive = 2,
                                           .unavailable = {"Gone", "Page file:///etc/passwd"}});
    CHECK(store().messages.notice() == u"Workspace restored · 4 opened · 2 already active · 2 unavailable"_qs);
    CHECK_FALSE(store().messages.error().has_value());
    REQUIRE(store().resumes.resumeShortfall());
    CHECK(store().resumes.resumeShortfall()->unavailable == report.outcome.unavailable);
    CHECK_FALSE(store().operations.busy());

    // The browser has not written the new pages down yet.
    memory.opened.clear();
    reopen();
    CHECK(resume().outcome.alreadyActive == 7);
    CHECK(memory.opened.isEmpty());
    CHECK(store().messages.notice() == u"Workspace restored · 0 opened · 7 already active · 2 unavailable"_qs);
}

TEST_CASE_FIXTURE(ResumeFixture, "what opens after it was chosen is not opened twice")
{
    memory.tabRecords[chrome] = QString("");
    addTab("https://a.example/");
    const RestorePlan plan = blockOn(store().resumes.restorePlan(checkpoint));
    REQUIRE(plan.tabsToOpen.size() == 1);
    memory.tabRecords[chrome] = u"1\u001f7\u001fHTTPS://a.example/\u001fOpen\u001e"_qs;

    const auto choose = [&](const RestorePlan &) { return ResumeSelection::missing(plan); };
    memory.addApplication("viewer", "Viewer", {0, 0, 300, 300});
    const RestoreReport report = blockOn(store().resumes.restore(checkpoint, choose, false)).report;

    CHECK(memory.opened.isEmpty());
    CHECK(report.outcome.openedTabs == 0);
    CHECK(report.outcome.alreadyActive == 3);
}

TEST_CASE_FIXTURE(ResumeFixture, "a browser that is missing starts with its pages, not with an empty window")
{
    checkpoint.apps = {{chrome, "Chrome"}};
    addTab("https://a.example/");
    CHECK(resume().outcome == RestoreOutcome{.openedApps = 1, .openedTabs = 1});
    CHECK(memory.opened == QStringList{"page com.google.Chrome https://a.example/"});
}

TEST_CASE_FIXTURE(ResumeFixture,
                  "pages of a browser that is not here go to the user's own, those of an unread one wait")
{
    addTab("https://unread.example/");
    CHECK_FALSE(blockOn(store().resumes.restorePlan(checkpoint)).tabCheckWarning); // That no browser runs is no fault.
    memory.tabRecords[chrome] = QString();                                         // Runs and cannot be read.
    addTab("https://elsewhere.example/").browserID = "com.apple.Safari";

    const RestorePlan plan = blockOn(store().resumes.restorePlan(checkpoint));
    CHECK(plan.unverifiedTabs.size() == 1);
    CHECK(plan.tabCheckWarning == u"Chrome tabs weren’t available. Whether its saved pages are open is not known."_qs);

    resume();
    CHECK(memory.opened == QStringList{"app viewer", "page  https://elsewhere.example/"});
}

TEST_CASE_FIXTURE(ResumeFixture, "what fails is named, and the rest is opened all the same")
{
    memory.openFailures = {{"viewer", "No such file or directory."}, {"", "No application opens web pages."}};
    addTab("https://a.example/");
    addTab("https://b.example/").browserID = "com.apple.Safari";
    addTab("https://c.example/", "7");
    checkpoint.tabs[2].window = 2;
    memory.savedWindows = {{2, {SavedBrowserWindow::State::Open, 7}}};
    memory.failedStarts = {{chrome, "Chrome", {"https://a.example/"}}};

    const RestoreReport report = resume();

    CHECK(report.outcome.openedTabs == 1);
    CHECK(store().messages.error() ==
          "Could not open: Viewer (No such file or directory), Page https://b.example/ (No "
          "application opens web pages), Chrome (it ended with an error), Page https://a.example/ "
          "(Chrome ended with an error)");
    CHECK(store().messages.notice() ==
          u"Workspace restored · 1 opened · 1 already active · 1 unavailable · %1 failed"_qs.arg(
              store().resumes.resumeShortfall()->failures.size()));

    // A document that was handed to an application in vain, and applications that never came.
    checkpoint.apps = {{"files", "Files"}, {chrome, "Chrome"}};
    checkpoint.tabs.resize(1);
    addWindow("org.editor", "lost.txt").documentURL = existing("lost.txt");
    memory.openFailures.clear();
    memory.failedStarts = {{chrome, "Chrome", {"https://a.example/"}},
                           {"files", "Files", {}},
                           {"org.editor", "Editor", {existing("lost.txt")}}};
    checkpoint.apps.append(SavedApp{"org.editor", "Editor"});
    const RestoreReport vain = resume(true);
    CHECK(vain.outcome.openedApps + vain.outcome.openedTabs + vain.documents == 0);
    CHECK(vain.outcome.failures.contains("lost.txt (Editor ended with an error)"));
}

TEST_CASE_FIXTURE(ResumeFixture, "a resume that is stopped begins nothing more and names what it left")
{
    checkpoint.apps.append(SavedApp{"files", "Files"});
    addTab("https://a.example/");
    addWindow("files", "notes").documentURL = existing("notes.txt");
    addWindow("org.editor", "Editor");
    QString awaited;
    memory.whenOpened = [&](const QString &) {
        awaited = store().resumes.resuming()->awaited;
        store().resumes.stopResume();
    };

    const RestoreReport report = resume(true);

    CHECK(memory.opened == QStringList{"app viewer"});
    CHECK(awaited == "Viewer");
    CHECK(report.outcome.openedApps == 1);
    CHECK(store().messages.error() ==
          "Could not open: Files (stopped by you), Page https://a.example/ (stopped by you), "
          "notes.txt (stopped by you)");
    for (const UnplacedWindow &window : store().resumes.unplacedWindows())
        CHECK(window.reason == "stopped by you");
    CHECK(store().resumes.unplacedWindows().size() == 2);
    CHECK_FALSE(store().resumes.resuming().has_value());

    memory.whenOpened = {};
    resume();
    CHECK_MESSAGE(memory.opened.contains("app files"), "the next one is not stopped");
}

TEST_CASE_FIXTURE(ResumeFixture, "folders, documents and window places follow the layout switch")
{
    const QString paper = existing("a \"paper\"\n.pdf");
    addWindow("viewer", "paper").documentURL = paper;
    addWindow("viewer", "other").documentURL = home.path() + "/sub/../a \"paper\"\n.pdf"; // A folder that is not there.
    addWindow("org.editor", "open.txt").documentURL = existing("open.txt");
    addWindow("org.editor", "notes.txt").documentURL = existing("notes.txt");
    addWindow("org.editor", "tab.txt").documentURL = existing("tab.txt"); // Open behind another one.
    memory.heldPaths = {existing("tab.txt")};
    addWindow("org.editor", "lost.txt").documentURL = home.filePath("lost.txt");
    addWindow("viewer", "far.pdf").documentURL = existing("far.pdf");
    addWindow("files", "far").locationURL = home.filePath("far");
    memory.silentPaths = {existing("far.pdf"), home.filePath("far")};
    addWindow("files", "home").locationURL = home.path();
    addWindow("gone", "theirs").documentURL = existing("theirs.txt");
    checkpoint.apps.append(SavedApp{"files", "Files"});
    memory.movable = {{.windowID = 1, .applicationID = "org.editor", .title = "*open.txt - Editor"}};
    memory.running.append({"files", "Files", true});
    // Known for certain, whatever its title says; the title of the other one decides nothing then.
    memory.movable.append({.windowID = 9, .applicationID = "org.editor", .title = "notes.txt of another folder"});
    memory.documents = {{.path = home.filePath("other/notes.txt"), .windowID = 9, .processID = 1001}};

    resume(false);
    CHECK(memory.opened == QStringList{"app viewer"});
    memory.opened.clear();
    memory.whenOpened = [&](const QString &entry) {
        const QString app = entry.section(' ', 1, 1);
        const QHash<QString, QString> titles = {{"viewer", "paper"}, {"org.editor", "notes.txt"}, {"files", "home"}};
        memory.movable.append({.windowID = 2, .applicationID = app, .title = titles.value(app)});
    };

    const RestoreReport report = resume(true);

    CHECK(memory.opened ==
          QStringList{"app viewer " + paper, "app org.editor " + existing("notes.txt"), "app files " + home.path()});
    CHECK(report.viewerDocuments == 1);
    CHECK(report.documents == 1);
    CHECK(report.folders == 1);
    CHECK(report.outcome.failures.filter("lost.txt (it no longer exists)").size() == 1);
    CHECK(report.outcome.failures.filter("far.pdf (its disk did not answer)").size() == 1);
    CHECK(report.outcome.failures.filter("far (its disk did not answer)").size() == 1);
    REQUIRE(report.layout.has_value());
    CHECK(report.layout->restoredCount == 4);
    CHECK(report.layout->skippedCount == report.layout->skipped.size());
}

TEST_CASE_FIXTURE(ResumeFixture, "two resumes of a library at once open everything once, whichever processes they are")
{
    addTab("https://a.example/");
    memory.whenOpened = [&](const QString &entry) {
        if (!entry.startsWith("page"))
            return;
        memory.addApplication("viewer", "Viewer", {0, 0, 300, 300}); // It takes its time.
        memory.tabRecords[chrome] = QString("");                     // It runs and has written nothing down.
    };
    AppStore other(desktop, {.preferences = Preferences(home.filePath("settings-of-other")),
                             .repository = CheckpointRepository(root()),
                             .openedPages = OpenedPages(home.filePath("opened-pages"))});
    QDir().mkpath(root());
    auto first = other.resumes.restore(checkpoint, ResumeSelection::missing, false);
    QList<RestorePlan> plans;
    const auto choose = [&](const RestorePlan &plan) {
        plans += plan;
        return ResumeSelection::missing(plan);
    };
    const RestoreReport second = blockOn(store().resumes.restore(checkpoint, choose, false)).report;
    blockOn(std::move(first));
    CHECK(memory.opened == QStringList{"app viewer", "page com.google.Chrome https://a.example/"});
    REQUIRE(plans.size() == 1);
    CHECK_MESSAGE(plans[0].appsToOpen.isEmpty(), "the plan is made when the other one is over");
    CHECK(second.outcome == RestoreOutcome{.alreadyActive = 3, .unavailable = {"Gone"}});
}

TEST_CASE_FIXTURE(ResumeFixture, "an application that somebody else starts meanwhile is not started again")
{
    checkpoint.apps = {{"viewer", "Viewer"}, {"files", "Files"}, {chrome, "Chrome"}};
    memory.whenOpened = [&](const QString &entry) {
        if (entry != "app viewer")
            return;
        memory.addApplication("files", "Files", {0, 0, 300, 300});
        memory.tabRecords[chrome] = u"1\u001f7\u001fhttps://a.example/\u001fOpen\u001e"_qs;
        memory.running.append({chrome, "Chrome", true});
    };
    addTab("https://a.example/");
    CHECK(resume().outcome == RestoreOutcome{.openedApps = 1, .alreadyActive = 3});
    CHECK(memory.opened == QStringList{"app viewer"});
}
