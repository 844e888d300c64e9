// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

struct AccessFixture : StoreFixture {
    qint64 started = 4711; // The process that a restart gives.
    std::optional<Failure> startFailure;
    int timesEnded = 0;

    AccessFixture()
    {
        memory.screenAccess = false;
        StoreParts parts{.preferences = preferences(),
                         .repository = CheckpointRepository(root()),
                         .openedPages = OpenedPages(home.filePath("opened-pages"))};
        parts.startInstance = [this] { return startInstance(); };
        parts.endApplication = [this] { ++timesEnded; };
        opened = std::make_unique<AppStore>(desktop, std::move(parts));
    }

    QCoro::Task<qint64> startInstance()
    {
        // The new process reads the drafts from the disk.
        CHECK(preferences().value(keys::resumeCaptureSetup) == true);
        CHECK(preferences().value(keys::captureDraftTitle) == "Chapter");
        CHECK_FALSE(store().sheets.showCapture());
        CHECK(store().screenAccess.restartingApp());
        if (startFailure)
            throw Failure(*startFailure);
        co_return started;
    }

    void openForm()
    {
        store().setup.requestCapture(CaptureKind::Session, CaptureForm::Sheet);
        store().drafts.setDraftTitle("Chapter");
    }
};

} // namespace

TEST_CASE_FIXTURE(AccessFixture, "the system's question is asked once in a run, and what was typed survives it")
{
    openForm();
    store().screenAccess.verifyAccessNow();
    CHECK(memory.timesAsked == 0);
    CHECK(store().messages.captureIssue() ==
          "Access is not active for this copy yet. Check Settings, then restart this app if "
          "macOS asks. This check does not request permission.");
    store().screenAccess.requestScreenAccess();
    const QString enable =
        "Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit and "
        "reopen, your draft will be waiting.";
    CHECK(store().messages.captureIssue() == enable);
    CHECK_FALSE(store().screenAccess.requestingAccess());
    memory.consentOnAsking = true;
    store().screenAccess.requestScreenAccess();
    CHECK(memory.timesAsked == 1);
    CHECK_FALSE(store().screenAccess.screenAccessGranted());
    CHECK(store().messages.captureIssue() == enable);

    AppStore &next = reopen();
    CHECK(next.sheets.showCapture());
    CHECK(next.drafts.pendingRecording());
    CHECK(next.drafts.draftTitle() == "Chapter");
    next.setup.cancelCapture();
    CHECK_FALSE(reopen().sheets.showCapture());
}

TEST_CASE_FIXTURE(AccessFixture, "consent given at the question, or before it was answered, opens the way")
{
    openForm();
    SUBCASE("at the question")
    {
        memory.consentOnAsking = true;
    }
    SUBCASE("meanwhile")
    {
        memory.screenAccess = true;
    }
    store().screenAccess.requestScreenAccess();
    CHECK(store().screenAccess.screenAccessGranted());
    CHECK_FALSE(store().messages.captureIssue());
}

TEST_CASE_FIXTURE(AccessFixture, "a restart ends this process only when another one runs")
{
    openForm();
    const QString prefix = "Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app "
                           "again. Your draft is saved. ";
    SUBCASE("another one runs")
    {
        blockOn(store().screenAccess.restartForPermission());
        CHECK(timesEnded == 1);
        blockOn(store().screenAccess.restartForPermission()); // While it is under way, there is no second one.
        CHECK(timesEnded == 1);
        store().screenAccess.requestScreenAccess();
        store().screenAccess.verifyAccessNow();
        CHECK(memory.timesAsked == 0);
        CHECK_FALSE(store().messages.captureIssue());
        return;
    }
    SUBCASE("it is this one")
    {
        started = QCoreApplication::applicationPid();
        blockOn(store().screenAccess.restartForPermission());
        CHECK(store().messages.captureIssue() == prefix + "macOS reopened the existing process.");
    }
    SUBCASE("there is none")
    {
        startFailure = Failure("Restart", 4, "No such file or directory.");
        blockOn(store().screenAccess.restartForPermission());
        CHECK(store().messages.captureIssue() == prefix + "No such file or directory.");
    }
    CHECK(timesEnded == 0);
    CHECK_FALSE(store().screenAccess.restartingApp());
    CHECK(store().sheets.showCapture()); // Where the message is.
    CHECK(store().drafts.draftTitle() == "Chapter");
}

TEST_CASE_FIXTURE(AccessFixture, "access that is granted is tried, as the system says one thing and may do another")
{
    memory.screenAccess = true;
    openForm();
    blockOn(store().screenAccess.verifyAccessNow());
    CHECK(store().screenAccess.screenAccessGranted());
    memory.displays.clear();
    blockOn(store().screenAccess.verifyAccessNow());
    CHECK_FALSE(store().screenAccess.screenAccessGranted());
    CHECK(store().messages.captureIssue() == "No display is available.");
}

TEST_CASE_FIXTURE(AccessFixture, "where consent would not help, the desktop's reason is given instead")
{
    memory.noScreenAccess = "There is no screen.";
    openForm();
    store().drafts.setDraftProjectName("Thesis");
    blockOn(store().form.captureMoment("Chapter", {}, CaptureKind::Checkpoint));
    CHECK(store().messages.captureIssue() == "There is no screen.");
    CHECK(store().library.projects().isEmpty());
}
