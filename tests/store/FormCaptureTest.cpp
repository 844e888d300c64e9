// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(StoreFixture, "the form saves a checkpoint of the workspace, clears its drafts and closes")
{
    memory.addApplication("org.secret", "Secret", {0, 0, 500, 500}, "hidden");
    store().rules.excludeApp({"org.secret", "Secret"});
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    store().drafts.setDraftProjectName(" Thesis ");

    blockOn(store().form.captureMoment("  First draft ", " Re-run the ablation\n", CaptureKind::Checkpoint));

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

TEST_CASE_FIXTURE(StoreFixture, "the drafts outlive a restart and a refusal, and the form reopens with them")
{
    memory.screenAccess = false;
    blockOn(store().form.captureMoment(" Title ", "next", CaptureKind::Checkpoint));
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
    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.error() == QString("Choose a project or enter a new project name before saving."));
    CHECK(memory.requests.isEmpty());
    CHECK_FALSE(QFile::exists(libraryPath()));
}

TEST_CASE_FIXTURE(StoreFixture, "a capture that fails keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(id);
    memory.pictureFailure = Failure("Capture", 2, "The screenshot could not be created.");

    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue() ==
          QString("Capture could not finish. Your draft is safe. Check Screen Recording settings; if access was "
                  "just enabled, quit and reopen this app, then try again. The screenshot could not be created."));
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK_FALSE(store().operations.busy());
    CHECK(mediaFolders().isEmpty());

    memory.pictureFailure.reset();
    memory.displays.clear();
    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue()->endsWith("No display is available to capture."));
    CHECK(mediaFolders().isEmpty());
}

TEST_CASE_FIXTURE(StoreFixture, "a library that cannot be written keeps the drafts and leaves no media behind")
{
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(id);
    memory.whileComposing = [this] { breakLibrary(); };
    blockOn(store().form.captureMoment("Title", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK(store().drafts.draftTitle() == "Title");
    CHECK(mediaFolders() == QStringList{"checkpoints.json"}); // The obstacle, no media.
}

TEST_CASE_FIXTURE(StoreFixture, "a save beside the form leaves the form's drafts alone")
{
    store().drafts.setDraftTitle("half written");
    const QUuid id = *store().projects.createProject("Thesis");
    const auto saved = blockOn(store().capture.saveMoment({id, " T ", {}, false}));
    REQUIRE(saved);
    CHECK(store().library.checkpoint(*saved)->title == "T");
    CHECK(store().drafts.draftTitle() == "half written");
}

TEST_CASE_FIXTURE(StoreFixture, "the form offers the project on whose page it opens, or the last one that is there")
{
    const QUuid other = *store().projects.createProject("Garden");
    blockOn(store().form.captureMoment("First", {}, CaptureKind::Checkpoint));
    CHECK_MESSAGE(store().navigation.selected()->projectID == other, "a project just made is the one that is offered");
    const QUuid id = *store().projects.createProject("Thesis");
    store().drafts.setDraftProjectID(other); // Where the last draft was for.
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK_MESSAGE(store().drafts.draftProjectID() == other, "the panel is on no page");
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    blockOn(store().form.captureMoment("Second", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->projectID == id);
    store().navigation.showProjects();
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK(store().drafts.draftProjectID() == id);
    CHECK(store().sheets.showQuickCapture());
    store().projects.setProjectArchived(id, true);
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    CHECK_FALSE(store().drafts.draftProjectID().has_value());
}
