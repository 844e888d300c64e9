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
    store().excludeApp({"org.secret", "Secret"});
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    store().draftProjectName.set(" Thesis ");

    finish(store().captureMoment("  First draft ", " Re-run the ablation\n", CaptureKind::Checkpoint));

    REQUIRE_FALSE(store().captureIssue().has_value());
    CHECK(store().notice() == QString("Checkpoint saved."));
    CHECK_FALSE(store().showCapture());
    CHECK_FALSE(store().busy());
    CHECK(store().draftTitle().isEmpty());
    CHECK(store().draftProjectName().isEmpty()); // The next new project starts without a name.
    const Checkpoint saved = *reopen().selected();
    CHECK(saved.title == "First draft");
    CHECK(saved.nextStep == "Re-run the ablation");
    CHECK(store().selectedProject()->name == "Thesis");
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
        store().excludeApp({excluded, "Secret"});
    hide("org.second");
    memory.addApplication(windowClass + "Xmessage", "Xmessage", {0, 0, 500, 500});
    store().draftProjectName.set("Thesis");
    finish(store().captureMoment({}, {}, CaptureKind::Checkpoint));
    const QString named = " Not among the installed apps, so saved by the name of their windows: Xmessage.";
    CHECK(store().selected()->captureNote ==
          "Open apps captured. Browser capture was off." + named +
              " 1 window was minimised or on another workspace: what it shows is not saved.");
    CHECK(store().selected()->windows->size() == 2);

    hide("org.third");
    store().includeBrowser.set(true);
    memory.tabRecords["com.google.Chrome"] = QString(); // Runs and cannot be read.
    finish(store().captureMoment({}, {}, CaptureKind::Session));
    finish(store().stop());
    const QString note = store().selected()->captureNote;
    CHECK(note.startsWith(u"Workspace captured at the end of your session. Chrome tabs weren’t available."_qs));
    CHECK(note.endsWith(named + " 2 windows were minimised or on another workspace: what they show is not saved."));
    CHECK(store().selected()->apps.last().id == windowClass + "Xmessage");
}

TEST_CASE_FIXTURE(StoreFixture, "a checkpoint without a title is named after the time")
{
    store().draftProjectName.set("Thesis");
    finish(store().captureMoment("   ", {}, CaptureKind::Checkpoint));
    CHECK(store().selected()->title == u"Checkpoint · "_qs + DateText::shortTime(store().selected()->createdAt));
}

TEST_CASE_FIXTURE(StoreFixture, "the drafts outlive a restart and a refusal, and the form reopens with them")
{
    memory.screenAccess = false;
    finish(store().captureMoment(" Title ", "next", CaptureKind::Checkpoint));
    CHECK(store().captureIssue()->startsWith("Screen access needs to be set up before saving."));
    auto stored = preferences();
    stored.setValue(keys::resumeCaptureSetup, true);
    REQUIRE(stored.synchronise());

    CHECK(reopen().draftTitle() == "Title");
    CHECK(store().draftNext() == "next");
    CHECK(store().showCapture());
    CHECK(store().projects().isEmpty());
    store().cancelCapture();
    CHECK_FALSE(store().showCapture());
    CHECK(store().draftTitle() == "Title");
    CHECK_FALSE(reopen().showCapture());
}

TEST_CASE_FIXTURE(StoreFixture, "without a project nothing is captured")
{
    finish(store().captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().error() == QString("Choose a project or enter a new project name before saving."));
    CHECK(memory.requests.isEmpty());
    CHECK_FALSE(QFile::exists(libraryPath()));
}

TEST_CASE_FIXTURE(StoreFixture, "a capture that fails keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().createProject("Thesis");
    store().draftProjectID.set(id);
    memory.pictureFailure = Failure("Capture", 2, "The screenshot could not be created.");

    finish(store().captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().captureIssue() ==
          QString("Capture could not finish. Your draft is safe. Check Screen Recording settings; if access was "
                  "just enabled, quit and reopen this app, then try again. The screenshot could not be created."));
    CHECK(store().draftTitle() == "Title");
    CHECK_FALSE(store().busy());
    CHECK(mediaFolders(root()).isEmpty());

    memory.pictureFailure.reset();
    memory.displays.clear();
    finish(store().captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().captureIssue()->endsWith("No display is available to capture."));
    CHECK(mediaFolders(root()).isEmpty());
}

TEST_CASE_FIXTURE(StoreFixture, "a library that cannot be written keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().createProject("Thesis");
    store().draftProjectID.set(id);
    memory.whileComposing = [this] { breakLibrary(); };
    finish(store().captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().error()->startsWith("Could not save this checkpoint: "));
    CHECK(store().draftTitle() == "Title");
    CHECK(mediaFolders(root()) == QStringList{"checkpoints.json"}); // The obstacle, no media.
}

TEST_CASE_FIXTURE(StoreFixture, "only one capture runs at a time")
{
    store().draftProjectName.set("Thesis");
    auto first = store().captureMoment("first", {}, CaptureKind::Checkpoint);
    CHECK(store().busy());
    finish(store().captureMoment("second", {}, CaptureKind::Checkpoint));
    finish(std::move(first));
    CHECK(store().checkpoints().size() == 1);
    CHECK(store().checkpoints().first().title == "first");
}

TEST_CASE_FIXTURE(StoreFixture, "a project that goes while something is captured for it is not made anew")
{
    for (const CaptureKind kind : {CaptureKind::Checkpoint, CaptureKind::Session}) {
        store().draftProjectID.set(store().createProject("Thesis").id);
        memory.whileComposing = [this] { CHECK(store().deleteProject(*store().draftProjectID())); };
        finish(store().captureMoment("Title", {}, kind));
        CHECK(store().captureIssue()->startsWith("The project was deleted meanwhile"));
        CHECK(store().draftTitle() == "Title");
        CHECK_FALSE(store().recording());
        CHECK(memory.recordings.isEmpty());
        CHECK(store().projects().isEmpty());
        CHECK(mediaFolders(root()).isEmpty());
    }
    memory.whileComposing = {};
    const QUuid again = *store().createProject("Thesis");
    memory.whileStarting = [this, again] { CHECK_FALSE(store().deleteProject(again)); };
    REQUIRE(finish(store().captureMoment("Title", {}, CaptureKind::Session)));
    // Another program's library does not have it: it comes back with its name.
    QFile::remove(libraryPath());
    CheckpointRepository(root()).saveLibrary({.projects = {Project{.name = "Other"}}});
    REQUIRE(store().createProject("Third"));
    REQUIRE_FALSE(store().project(again));
    REQUIRE(finish(store().stop()));
    CHECK(namesOf(store().projects()) == QStringList{"Other", "Third", "Thesis"});
}

TEST_CASE_FIXTURE(StoreFixture, "a rule made while something is captured holds for all of it")
{
    const QString chrome = "com.google.Chrome";
    memory.addApplication("org.secret", "Secret", {0, 0, 500, 500}, "hidden");
    memory.tabRecords[chrome] = u"1\u001f7\u001fhttps://bank.example/\u001fBank\u001e"_qs;
    store().includeBrowser.set(true);
    store().draftProjectID.set(store().createProject("Thesis").id);
    const SavedApp secret{"org.secret", "Secret"};
    REQUIRE(finish(store().captureMoment("All is shown", {}, CaptureKind::Checkpoint)));
    REQUIRE(store().selected()->apps.contains(secret));
    REQUIRE(store().selected()->tabs.size() == 1);

    memory.whileComposing = [&] {
        store().excludeApp(secret);
        store().excludeDomain("bank.example");
    };
    const auto isHidden = [&](const Checkpoint &checkpoint) {
        return !checkpoint.apps.contains(secret) && checkpoint.windows->size() == 1 && checkpoint.tabs.isEmpty() &&
               memory.requests.last().excludedAppIDs.contains("org.secret");
    };
    REQUIRE(finish(store().captureMoment("Hidden", {}, CaptureKind::Checkpoint)));
    CHECK(isHidden(*store().selected()));

    store().allowApp("org.secret");
    memory.whileStarting = [&] {
        CHECK_FALSE(store().allowApp("org.secret"));
        CHECK_FALSE(store().excludeApp({"org.editor", "Editor"}));
    };
    REQUIRE(finish(store().captureMoment("Session", {}, CaptureKind::Session)));
    CHECK(memory.recordings.last().excludedAppIDs == store().exclusions().appIDs());
    CHECK_MESSAGE(memory.recordings.last().excludedAppIDs == QSet<QString>{"org.secret"},
                  "made during the picture, before the recorder was asked");
    finish(store().stop());
    CHECK(isHidden(*store().selected()));
}

TEST_CASE_FIXTURE(StoreFixture, "a save beside the form leaves the form's drafts alone")
{
    store().draftTitle.set("half written");
    const QUuid id = *store().createProject("Thesis");
    const auto saved = finish(store().saveMoment({id, " T ", {}, false}));
    REQUIRE(saved);
    CHECK(store().checkpoint(*saved)->title == "T");
    CHECK(store().draftTitle() == "half written");
}

TEST_CASE_FIXTURE(StoreFixture, "tabs are kept with the checkpoint, except those of excluded browsers and websites")
{
    const auto record = [](const QString &url) { return u"1\u001f7\u001f%1\u001fA page\u001e"_qs.arg(url); };
    memory.tabRecords.insert("com.google.Chrome",
                             record("https://bank.example/account") + record("https://a.example/"));
    memory.tabRecords.insert("com.brave.Browser", record("https://b.example/"));
    store().excludeDomain("bank.example");
    store().excludeApp({"com.brave.Browser", "Brave"});
    store().includeBrowser.set(true);
    store().draftProjectName.set("Thesis");

    finish(store().captureMoment("Title", {}, CaptureKind::Checkpoint));
    REQUIRE(store().selected());
    REQUIRE(store().selected()->tabs.size() == 1);
    CHECK(store().selected()->tabs.first().url == "https://a.example/");
    CHECK(store().selected()->captureNote == "Browser tabs and open apps captured.");
    CHECK(memory.browsersRead == QStringList{"com.google.Chrome"});
    CHECK_FALSE(fileBytes(libraryPath()).contains("bank.example"));

    memory.tabRecords.insert("com.google.Chrome", QString());
    finish(store().captureMoment("Again", {}, CaptureKind::Checkpoint));
    CHECK(store().selected()->tabs.isEmpty());
    CHECK(store().selected()->captureNote.startsWith("Chrome tabs weren’t available."));
    memory.tabRecords.clear();
    finish(store().captureMoment("Third", {}, CaptureKind::Checkpoint));
    CHECK(store().selected()->captureNote.startsWith("No supported browser was open."));
}

TEST_CASE_FIXTURE(StoreFixture, "the form offers the project on whose page it opens, or the last one that is there")
{
    const QUuid other = *store().createProject("Garden");
    finish(store().captureMoment("First", {}, CaptureKind::Checkpoint));
    CHECK_MESSAGE(store().selected()->projectID == other, "a project just made is the one that is offered");
    const QUuid id = *store().createProject("Thesis");
    store().draftProjectID.set(other); // Where the last draft was for.
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK_MESSAGE(store().draftProjectID() == other, "the panel is on no page");
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    finish(store().captureMoment("Second", {}, CaptureKind::Checkpoint));
    CHECK(store().selected()->projectID == id);
    store().showProjects();
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK(store().draftProjectID() == id);
    CHECK(store().showQuickCapture());
    store().setProjectArchived(id, true);
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    CHECK_FALSE(store().draftProjectID().has_value());
}
