// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include "support/BlockOn.h"
#include "ui/sheets/RestoreListModel.h"

#include <QApplication>
#include <QDir>
#include <QTest>

using namespace ardeno;

namespace {

const QString chromeID = "com.google.Chrome";

struct SheetFixture : WindowFixture {
    SheetFixture() { hasSheets = true; }

    Sheet *sheet() const { return window->sheets().topSheet(); }

    void openCapture()
    {
        press(Qt::Key_S, Qt::ControlModifier);
        REQUIRE(sheet());
    }

    // A checkpoint of an editor that runs, a viewer that does not, one that is not installed, and pages of all kinds.
    Checkpoint saveMixed()
    {
        memory.installed = {{"org.editor", "Editor"}, {"viewer", "Viewer"}, {chromeID, "Chrome"}};
        memory.tabRecords[chromeID] = u"1\u001f7\u001fhttps://open.example/\u001fOpen\u001e"_qs;
        memory.tabRecords["org.mozilla.firefox"] = QString(); // Runs and cannot be read.
        Checkpoint checkpoint = saveCheckpoint(store().library.projects().first().id, "Mixed", 10);
        checkpoint.apps = {{"org.editor", "Editor"}, {"viewer", "Viewer"}, {"gone", "Gone"}};
        const auto tab = [](const QString &title, const QString &url, const QString &browser = chromeID) {
            return SavedTab{.title = title, .url = url, .window = 1, .browserID = browser};
        };
        checkpoint.tabs = {tab("New", "https://new.example/"), tab("Open", "https://open.example:443/"),
                           tab("Again", "https://new.example/"), tab("", "file:///etc/passwd"),
                           tab("Unread", "https://unread.example/", "org.mozilla.firefox")};
        checkpoint.windows =
            QList<SavedWindow>{SavedWindow{.appID = "org.editor", .appName = "Editor", .title = "notes.txt"}};
        REQUIRE(store().editing.save(checkpoint));
        settle();
        return checkpoint;
    }

    const RestoreListModel &rows() const
    {
        return *static_cast<const RestoreListModel *>(list("Apps and tabs of the checkpoint")->model());
    }

    void openRestore()
    {
        store().sheets.open(&OpenSheets::showRestore);
        settle();
        REQUIRE(eventually([this] { return rows().plan().has_value(); }));
    }

    QStringList statuses() const
    {
        QStringList all;
        for (const RestoreRow &row : rows().rows()) {
            const QString mark = !row.status.isChoice ? "" : rows().isChosen(row) ? "[x] " : "[ ] ";
            all << mark + row.title + (row.status.text.isEmpty() ? QString() : ": " + row.status.text);
        }
        return all;
    }
};

} // namespace

TEST_CASE_FIXTURE(SheetFixture, "a checkpoint is saved through its sheet, into a project that it makes")
{
    openProject();
    openCapture();
    CHECK(seesText("A checkpoint saves your screenshot, open apps, browser tabs and next step together."));
    CHECK_FALSE(seesText("New project name"));
    type("Chapter 3");
    press(Qt::Key_Escape);
    CHECK(store().drafts.draftTitle() == "Chapter 3"); // What was typed is still there the next time.
    openCapture();
    button("Project: Thesis")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_End);
    CHECK(findButton("Project: New project"));
    CHECK(seesText("New project name"));
    widget("New project name")->setFocus();
    press(Qt::Key_Return);
    CHECK(seesText("Choose a project or enter a new project name before saving."));
    press(Qt::Key_Return);
    CHECK(store().library.checkpoints().isEmpty());
    type("Garden");
    press(Qt::Key_Return);
    REQUIRE(eventually([this] { return seesText("Checkpoint saved."); }));
    CHECK_FALSE(sheet());
    CHECK(store().library.checkpoints().first().title == "Chapter 3");
    CHECK(store().navigation.selectedProject()->name == "Garden");
    CHECK(store().drafts.draftTitle().isEmpty());
}

TEST_CASE_FIXTURE(SheetFixture, "a save that fails leaves the sheet open with all that was typed, to be tried again")
{
    openProject();
    openCapture();
    type("Chapter 3");
    memory.pictureFailure = Failure("Capture", 2, "The picture could not be made.");
    bool wasLocked = false;
    memory.whileComposing = [&] {
        wasLocked = isOff("Cancel") && isOff(u"Saving checkpoint…"_qs);
        press(Qt::Key_Escape); // Nothing is left alone half done.
    };
    click("Save checkpoint");
    const QString issue = "Capture status: Capture could not finish. Your draft is safe. Check Screen Recording "
                          "settings; if access was just enabled, quit and reopen this app, then try again. The picture "
                          "could not be made.";
    REQUIRE(eventually([&] { return seesText(issue); }));
    CHECK(wasLocked);
    CHECK(seesText("Chapter 3"));
    memory.pictureFailure.reset();
    memory.whileComposing = {};

    breakLibrary();
    press(Qt::Key_Return);
    REQUIRE(eventually([this] { return seesText("Something needs attention"); }));
    press(Qt::Key_Return);
    CHECK(sheet()->accessibleName() == "Save a checkpoint.");
    QDir(libraryPath()).removeRecursively();
    click("Save checkpoint");
    REQUIRE(eventually([this] { return !store().library.checkpoints().isEmpty(); }));
    CHECK(store().library.checkpoints().first().title == "Chapter 3");
}

TEST_CASE_FIXTURE(SheetFixture, "what a command saves meanwhile takes neither the keyboard nor the page from the user")
{
    openProject();
    const std::optional<QUuid> shown = store().navigation.selectedProjectID();
    openCapture();
    type("Chapter");
    const CaptureRequest request{*store().projects.createProject("Garden", Audience::Caller).id};
    memory.whileComposing = [this] {
        type(" 3");
        CHECK(isOff("Save checkpoint"));
    };
    CHECK(blockOn(store().capture.saveMoment(request, Audience::Caller)));
    settle();
    CHECK(store().drafts.draftTitle() == "Chapter 3");
    CHECK(store().navigation.selectedProjectID() == shown);
    CHECK_FALSE(seesText("Checkpoint saved."));
    memory.whileComposing = {};
    press(Qt::Key_Return);
    REQUIRE(eventually([this] { return seesText("Checkpoint saved."); }));
    CHECK(store().library.checkpoints().first().title == "Chapter 3");
    CHECK(store().library.checkpoints().first().projectID == shown);
}

TEST_CASE_FIXTURE(SheetFixture, "a work session is started in the sheet and stopped from the window")
{
    openProject();
    openCapture();
    click("Record a work session");
    CHECK(seesText("Record a work session."));
    click("Start session");
    REQUIRE(eventually([this] { return store().recorder.recording(); }));
    CHECK_FALSE(sheet());
    CHECK(store().library.checkpoints().isEmpty());
    click("Stop & save checkpoint");
    REQUIRE(eventually([this] { return !store().library.checkpoints().isEmpty(); }));
    CHECK(store().library.checkpoints().first().recording.has_value());
    openCapture();
    CHECK(findButton("Save checkpoint")); // The next one is an ordinary one.
}

TEST_CASE_FIXTURE(SheetFixture, "without screen access the sheet leads to it, and sees by itself that it was given")
{
    memory.screenAccess = false;
    openProject();
    openCapture();
    CHECK(seesText("Screen access setup"));
    CHECK(seesText("Why we need screen access"));
    CHECK(seesText("Microphone and system audio are off"));
    CHECK(memory.timesAsked == 0);
    type("Chapter 3");
    press(Qt::Key_Return); // "Allow screen access…"
    CHECK(memory.timesAsked == 1);
    CHECK(seesText("Capture status: Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to "
                   "quit and reopen, your draft will be waiting."));
    click("Open Screen Settings…");
    click("Open Settings");
    CHECK(memory.timesSettingsOpened == 2);
    click("Check again");
    CHECK(memory.timesAsked == 1);
    pictures("access");

    memory.screenAccess = true;
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    settle();
    CHECK_FALSE(seesText("Screen access setup"));
    CHECK(findButton("Save checkpoint"));
    CHECK_FALSE(store().messages.captureIssue());

    memory.screenAccess = false;
    memory.noScreenAccess = "This desktop does not show its screen to anybody.";
    store().screenAccess.refreshScreenAccess();
    settle();
    CHECK(seesText("This desktop does not show its screen to anybody."));
    CHECK_FALSE(seesText("Screen access setup"));
    CHECK(isOff("Save checkpoint"));
}

TEST_CASE_FIXTURE(SheetFixture, "the restore sheet ticks what is missing and nothing else, and opens what is ticked")
{
    openProject();
    saveMixed();
    openRestore();
    CHECK(statuses() == QStringList{"APPLICATIONS", "Editor: Active", "[x] Viewer: Will open", "Gone: Not installed",
                                    "BROWSER TABS", "[x] New: Will open", "Open: Already open",
                                    "Again: Duplicate skipped", "Unavailable page: Unavailable",
                                    "[ ] Unread: Select if missing", *rows().plan()->tabCheckWarning});
    CHECK(rows().rows().at(8).detail == "Unavailable URL");
    for (const char *const chip : {"2 to open", "2 active", "2 unavailable", "1 to review"})
        CHECK(seesText(chip));
    picture("restore");
    QListView *const view = list("Apps and tabs of the checkpoint");
    REQUIRE(view->hasFocus());
    click("Open 2 missing items");
    REQUIRE(eventually([this] { return store().messages.notice().has_value() && !store().operations.busy(); }));
    CHECK_FALSE(sheet());
    CHECK(memory.opened == QStringList{"app viewer", "page com.google.Chrome https://new.example/"});
}

TEST_CASE_FIXTURE(SheetFixture, "ticks are set by keys and clicks, and only where there is a choice")
{
    openProject();
    saveMixed();
    openRestore();
    QListView *const view = list("Apps and tabs of the checkpoint");
    press(Qt::Key_Down); // From the editor, which runs, to the viewer.
    press(Qt::Key_Space);
    CHECK(findButton("Open 1 missing item"));
    clickRow(view, 1);
    clickRow(view, 6);
    CHECK(findButton("Open 1 missing item"));
    clickRow(view, 9);
    CHECK(findButton("Open 2 missing items"));
    clickRow(view, 9);
    clickRow(view, 5);
    CHECK(findButton("Restore window positions"));
    click("Restore saved windows and Finder locations");
    CHECK(isOff("Nothing to open"));
    press(Qt::Key_Return);
    CHECK(sheet());
    CHECK(memory.opened.isEmpty());
}

TEST_CASE_FIXTURE(SheetFixture, "applications that start and end while the restore sheet is open never open twice")
{
    openProject();
    saveMixed();
    openRestore();
    const auto changed = [this](const QString &row) {
        memory.applicationsChanged();
        return eventually([&] { return statuses().contains(row); });
    };
    memory.addApplication("viewer", "Viewer", {0, 0, 300, 300});
    REQUIRE(changed("Viewer: Active"));
    CHECK(findButton("Open 1 missing item"));
    // What has become missing is as good as what has been missing; what was unticked stays so.
    memory.running.removeLast();
    REQUIRE(changed("[x] Viewer: Will open"));
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    memory.running.clear();
    REQUIRE(changed("[x] Editor: Will open"));
    CHECK(statuses().contains("[ ] Viewer: Will open"));
    CHECK(findButton("Open 2 missing items"));
    for (int i = 0; i < 50; ++i)
        memory.applicationsChanged(); // Each asks again; the last answer counts.
    // What a command resumed is open as well.
    memory.tabRecords[chromeID] += u"1\u001f7\u001fhttps://new.example/\u001fNew\u001e"_qs;
    blockOn(store().resumes.restore({}, ResumeSelection::missing, false, Audience::Caller));
    CHECK(eventually([this] { return statuses().contains("New: Already open"); }));
    press(Qt::Key_Escape);
    settle();
    CHECK_FALSE(store().sheets.showRestore());
}

TEST_CASE_FIXTURE(SheetFixture, "what the last resume did not place is listed with its reason and can be tried again")
{
    openProject();
    Checkpoint checkpoint = saveMixed();
    checkpoint.apps = {{"org.editor", "Editor"}};
    checkpoint.tabs.clear();
    REQUIRE(store().editing.save(checkpoint));
    memory.movable = {{.windowID = 1, .applicationID = "org.editor", .title = "notes.txt", .isMinimised = true}};
    checkpoint.windows->first().frame = {10, 10, 400, 300};
    REQUIRE(store().editing.save(checkpoint));
    openRestore();
    click("Restore window positions");
    REQUIRE(eventually([this] { return !store().resumes.unplacedWindows().isEmpty() && !store().operations.busy(); }));
    openRestore();
    CHECK(statuses().contains("notes.txt: minimised"));
    CHECK(seesText("1 window was not placed by the last resume."));
    pictures("restore-remaining");
    memory.movable.first().isMinimised = false;
    click("Place remaining windows");
    REQUIRE(eventually([this] { return store().resumes.unplacedWindows().isEmpty() && !store().operations.busy(); }));
    CHECK(memory.moves.size() == 1);
    CHECK_FALSE(statuses().contains("notes.txt: minimised"));
    CHECK(sheet());
}

TEST_CASE_FIXTURE(SheetFixture,
                  "moving windows is asked for once the user wants it, and never shown as possible before")
{
    memory.moving = {Capability::State::NeedsConsent, {}};
    openProject();
    saveMixed();
    openRestore();
    CHECK(seesText("Moving other apps’ windows needs Accessibility access. Opening apps and tabs works without it."));
    click("Check access");
    CHECK(findButton("Allow window positioning…"));
    click("Allow window positioning…");
    CHECK_FALSE(findButton("Allow window positioning…"));
}

TEST_CASE_FIXTURE(SheetFixture, "a sample is only previewed")
{
    seedStarterExample = true;
    openWindow();
    openRestore();
    CHECK(seesText("Preview what this sample would open."));
    press(Qt::Key_Return);
    CHECK(sheet());
    CHECK(memory.opened.isEmpty());
}

TEST_CASE_FIXTURE(SheetFixture, "hundreds of items and endless texts fit into both sheets and the page")
{
    openProject();
    Checkpoint checkpoint = saveMixed();
    const QString endless = QString("word ").repeated(2000);
    for (int i = 0; i < 100; ++i)
        checkpoint.apps.append({QString("app%1").arg(i), i % 10 ? QString("Application %1").arg(i) : endless});
    for (int i = 0; i < 500; ++i)
        checkpoint.tabs.append({.title = i % 3   ? QString("Page %1").arg(i)
                                         : i % 2 ? endless
                                                 : QString(),
                                .url = QString("https://example.org/%1?").arg(i) + QString("x").repeated(10'000)});
    REQUIRE(store().editing.save(checkpoint));
    window->resize(960, 690);
    settle();
    CHECK(window->findChildren<QWidget *>().size() < 400);
    openRestore();
    CHECK(rows().rowCount() == 3 + 100 + 5 + 500 + 3);
    CHECK(sheet()->height() <= window->height());
    press(Qt::Key_End);
    picture("restore-many");
    press(Qt::Key_Escape);
    openCapture();
    store().drafts.setDraftTitle(endless);
    store().projects.createProject(endless);
    settle();
    CHECK(sheet()->width() == 500);
    picture("capture-long");
}
