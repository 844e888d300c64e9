// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Finish.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

QStringList mediaFolders(const QString &root)
{
    return QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

} // namespace

TEST_CASE_FIXTURE(StoreFixture, "the form saves a checkpoint of the workspace, clears its drafts and closes")
{
    memory.addApplication("org.secret", "Secret", {0, 0, 500, 500}, "hidden");
    store().rules.excludeApp({"org.secret", "Secret"});
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    store().drafts.setDraftProjectName(" Thesis ");

    finish(store().form.captureMoment("  First draft ", " Re-run the ablation\n", CaptureKind::Checkpoint));

    REQUIRE_FALSE(store().messages.captureIssue().has_value());
    CHECK(store().messages.notice() == QString("Checkpoint saved."));
    CHECK_FALSE(store().sheets.showCapture());
    CHECK_FALSE(store().operations.busy());
    CHECK(store().drafts.draftTitle().isEmpty());
    CHECK(store().drafts.draftProjectName().isEmpty()); // The next new project starts without a name.
    const Checkpoint saved = *reopen().navigation.selected();
    CHECK(saved.title == "First draft");
    CHECK(saved.nextStep == "Re-run the ablation");
    CHECK(store().navigation.selectedProject()->name == "Thesis");
    CHECK(saved.apps == QList<SavedApp>{{"org.editor", "Editor"}});
    REQUIRE(saved.windows.has_value());
    REQUIRE(saved.windows->size() == 1);
    CHECK(saved.windows->first().frame == WindowRect{100, 100, 800, 600});
    CHECK(saved.tabs.isEmpty());
    CHECK(saved.captureNote == "Open apps captured. Browser capture was off.");
    CHECK(fileBytes(*saved.screenshot).startsWith("\x89PNG"));
    CHECK(*saved.screenshot == mediaFolder(saved) + "/snapshot.png");
    CHECK(memory.requests.last().excludedAppIDs == QSet<QString>{"org.secret"});
    CHECK(memory.preparedExclusions.last() == QSet<QString>{"org.secret"});
}

TEST_CASE_FIXTURE(StoreFixture,
                  "the note says what is saved by name alone and what was out of sight, never of what is excluded")
{
    const QString windowClass = "window-class/";
    const auto hide = [this](const QString &id) {
        memory.addApplication(id, id.section('/', -1), {0, 0, 500, 500}, "hidden");
        memory.windows.last().isOnScreen = false;
    };
    hide("org.secret");
    hide(windowClass + "Secret");
    for (const char *excluded : {"org.secret", "window-class/Secret"})
        store().rules.excludeApp({excluded, "Secret"});
    hide("org.second");
    memory.addApplication(windowClass + "Xmessage", "Xmessage", {0, 0, 500, 500});
    store().drafts.setDraftProjectName("Thesis");
    finish(store().form.captureMoment({}, {}, CaptureKind::Checkpoint));
    const QString named = " Not among the installed apps, so saved by the name of their windows: Xmessage.";
    CHECK(store().navigation.selected()->captureNote ==
          "Open apps captured. Browser capture was off." + named +
              " 1 window was minimised or on another workspace: what it shows is not saved.");
    CHECK(store().navigation.selected()->windows->size() == 2);

    hide("org.third");
    store().drafts.setIncludeBrowser(true);
    memory.tabRecords["com.google.Chrome"] = QString(); // Runs and cannot be read.
    finish(store().form.captureMoment({}, {}, CaptureKind::Session));
    finish(store().sessions.stop());
    const QString note = store().navigation.selected()->captureNote;
    CHECK(note.startsWith(u"Workspace captured at the end of your session. Chrome tabs weren’t available."_qs));
    CHECK(note.endsWith(named + " 2 windows were minimised or on another workspace: what they show is not saved."));
    CHECK(store().navigation.selected()->apps.last().id == windowClass + "Xmessage");
}

TEST_CASE_FIXTURE(StoreFixture, "a checkpoint without a title is named after the time")
{
    store().drafts.setDraftProjectName("Thesis");
    finish(store().form.captureMoment("   ", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->title ==
          u"Checkpoint · "_qs + DateText::shortTime(store().navigation.selected()->createdAt));
}

TEST_CASE_FIXTURE(StoreFixture, "the drafts outlive a restart and a refusal, and the form reopens with them")
{
    memory.screenAccess = false;
    finish(store().form.captureMoment(" Title ", "next", CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue()->startsWith("Screen access needs to be set up before saving."));
    auto stored = preferences();
    stored.setValue(keys::resumeCaptureSetup, true);
    REQUIRE(stored.synchronise());

    CHECK(reopen().drafts.draftTitle() == "Title");
    CHECK(store().drafts.draftNext() == "next");
    CHECK(store().sheets.showCapture());
    CHECK(store().library.projects().isEmpty());
    store().setup.cancelCapture();
    CHECK_FALSE(store().sheets.showCapture());
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK_FALSE(reopen().sheets.showCapture());
}

TEST_CASE_FIXTURE(StoreFixture, "without a project nothing is captured")
{
    finish(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.error() == QString("Choose a project or enter a new project name before saving."));
    CHECK(memory.requests.isEmpty());
    CHECK_FALSE(QFile::exists(libraryPath()));
}

TEST_CASE_FIXTURE(StoreFixture, "a capture that fails keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(id);
    memory.pictureFailure = Failure("Capture", 2, "The screenshot could not be created.");

    finish(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue() ==
          QString("Capture could not finish. Your draft is safe. Check Screen Recording settings; if access was "
                  "just enabled, quit and reopen this app, then try again. The screenshot could not be created."));
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK_FALSE(store().operations.busy());
    CHECK(mediaFolders(root()).isEmpty());

    memory.pictureFailure.reset();
    memory.displays.clear();
    finish(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue()->endsWith("No display is available to capture."));
    CHECK(mediaFolders(root()).isEmpty());
}

TEST_CASE_FIXTURE(StoreFixture, "a library that cannot be written keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(id);
    memory.whileComposing = [this] { breakLibrary(); };
    finish(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK(mediaFolders(root()) == QStringList{"checkpoints.json"}); // The obstacle, no media.
}

TEST_CASE_FIXTURE(StoreFixture, "only one capture runs at a time")
{
    store().drafts.setDraftProjectName("Thesis");
    auto first = store().form.captureMoment("first", {}, CaptureKind::Checkpoint);
    CHECK(store().operations.busy());
    finish(store().form.captureMoment("second", {}, CaptureKind::Checkpoint));
    finish(std::move(first));
    CHECK(store().library.checkpoints().size() == 1);
    CHECK(store().library.checkpoints().first().title == "first");
}

TEST_CASE_FIXTURE(StoreFixture, "a project that goes while something is captured for it is not made anew")
{
    for (const CaptureKind kind : {CaptureKind::Checkpoint, CaptureKind::Session}) {
        store().drafts.setDraftProjectID(store().projects.createProject("Thesis").id);
        memory.whileComposing = [this] { CHECK(store().deletion.deleteProject(*store().drafts.draftProjectID())); };
        finish(store().form.captureMoment("Title", {}, kind));
        CHECK(store().messages.captureIssue()->startsWith("The project was deleted meanwhile"));
        CHECK(store().drafts.draftTitle() == "Title");
        CHECK_FALSE(store().recorder.recording());
        CHECK(memory.recordings.isEmpty());
        CHECK(store().library.projects().isEmpty());
        CHECK(mediaFolders(root()).isEmpty());
    }
    memory.whileComposing = {};
    const QUuid again = *store().projects.createProject("Thesis");
    memory.whileStarting = [this, again] { CHECK_FALSE(store().deletion.deleteProject(again)); };
    REQUIRE(finish(store().form.captureMoment("Title", {}, CaptureKind::Session)));
    // Another program's library does not have it: it comes back with its name.
    QFile::remove(libraryPath());
    CheckpointRepository(root()).saveLibrary({.projects = {Project{.name = "Other"}}});
    REQUIRE(store().projects.createProject("Third"));
    REQUIRE_FALSE(store().library.project(again));
    REQUIRE(finish(store().sessions.stop()));
    CHECK(namesOf(store().library.projects()) == QStringList{"Other", "Third", "Thesis"});
}

TEST_CASE_FIXTURE(StoreFixture, "a rule made while something is captured holds for all of it")
{
    const QString chrome = "com.google.Chrome";
    memory.addApplication("org.secret", "Secret", {0, 0, 500, 500}, "hidden");
    memory.tabRecords[chrome] = u"1\u001f7\u001fhttps://bank.example/\u001fBank\u001e"_qs;
    store().drafts.setIncludeBrowser(true);
    store().drafts.setDraftProjectID(store().projects.createProject("Thesis").id);
    const SavedApp secret{"org.secret", "Secret"};
    REQUIRE(finish(store().form.captureMoment("All is shown", {}, CaptureKind::Checkpoint)));
    REQUIRE(store().navigation.selected()->apps.contains(secret));
    REQUIRE(store().navigation.selected()->tabs.size() == 1);

    memory.whileComposing = [&] {
        store().rules.excludeApp(secret);
        store().rules.excludeDomain("bank.example");
    };
    const auto isHidden = [&](const Checkpoint &checkpoint) {
        return !checkpoint.apps.contains(secret) && checkpoint.windows->size() == 1 && checkpoint.tabs.isEmpty() &&
               memory.requests.last().excludedAppIDs.contains("org.secret");
    };
    REQUIRE(finish(store().form.captureMoment("Hidden", {}, CaptureKind::Checkpoint)));
    CHECK(isHidden(*store().navigation.selected()));

    store().rules.allowApp("org.secret");
    memory.whileStarting = [&] {
        CHECK_FALSE(store().rules.allowApp("org.secret"));
        CHECK_FALSE(store().rules.excludeApp({"org.editor", "Editor"}));
    };
    REQUIRE(finish(store().form.captureMoment("Session", {}, CaptureKind::Session)));
    CHECK(memory.recordings.last().excludedAppIDs == store().rules.exclusions().appIDs());
    CHECK_MESSAGE(memory.recordings.last().excludedAppIDs == QSet<QString>{"org.secret"},
                  "made during the picture, before the recorder was asked");
    finish(store().sessions.stop());
    CHECK(isHidden(*store().navigation.selected()));
}

TEST_CASE_FIXTURE(StoreFixture, "a save beside the form leaves the form's drafts alone")
{
    store().drafts.setDraftTitle("half written");
    const QUuid id = *store().projects.createProject("Thesis");
    const auto saved = finish(store().capture.saveMoment({id, " T ", {}, false}));
    REQUIRE(saved);
    CHECK(store().library.checkpoint(*saved)->title == "T");
    CHECK(store().drafts.draftTitle() == "half written");
}

TEST_CASE_FIXTURE(StoreFixture, "tabs are kept with the checkpoint, except those of excluded browsers and websites")
{
    const auto record = [](const QString &url) { return u"1\u001f7\u001f%1\u001fA page\u001e"_qs.arg(url); };
    memory.tabRecords.insert("com.google.Chrome",
                             record("https://bank.example/account") + record("https://a.example/"));
    memory.tabRecords.insert("com.brave.Browser", record("https://b.example/"));
    store().rules.excludeDomain("bank.example");
    store().rules.excludeApp({"com.brave.Browser", "Brave"});
    store().drafts.setIncludeBrowser(true);
    store().drafts.setDraftProjectName("Thesis");

    finish(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    REQUIRE(store().navigation.selected());
    REQUIRE(store().navigation.selected()->tabs.size() == 1);
    CHECK(store().navigation.selected()->tabs.first().url == "https://a.example/");
    CHECK(store().navigation.selected()->captureNote == "Browser tabs and open apps captured.");
    CHECK(memory.browsersRead == QStringList{"com.google.Chrome"});
    CHECK_FALSE(fileBytes(libraryPath()).contains("bank.example"));

    memory.tabRecords.insert("com.google.Chrome", QString());
    finish(store().form.captureMoment("Again", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->tabs.isEmpty());
    CHECK(store().navigation.selected()->captureNote.startsWith("Chrome tabs weren’t available."));
    memory.tabRecords.clear();
    finish(store().form.captureMoment("Third", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->captureNote.startsWith("No supported browser was open."));
}

TEST_CASE_FIXTURE(StoreFixture, "the form offers the project on whose page it opens, or the last one that is there")
{
    const QUuid other = *store().projects.createProject("Garden");
    finish(store().form.captureMoment("First", {}, CaptureKind::Checkpoint));
    CHECK_MESSAGE(store().navigation.selected()->projectID == other, "a project just made is the one that is offered");
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(other); // Where the last draft was for.
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK_MESSAGE(store().drafts.draftProjectID() == other, "the panel is on no page");
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    finish(store().form.captureMoment("Second", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->projectID == id);
    store().navigation.showProjects();
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK(store().drafts.draftProjectID() == id);
    CHECK(store().sheets.showQuickCapture());
    store().projects.setProjectArchived(id, true);
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    CHECK_FALSE(store().drafts.draftProjectID().has_value());
}
