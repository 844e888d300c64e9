// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Finish.h"
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
        CHECK_FALSE(store().showCapture());
        CHECK(store().restartingApp());
        if (startFailure)
            throw Failure(*startFailure);
        co_return started;
    }

    void openForm()
    {
        store().requestCapture(CaptureKind::Session, CaptureForm::Sheet);
        store().draftTitle.set("Chapter");
    }
};

} // namespace

TEST_CASE_FIXTURE(AccessFixture, "the system's question is asked once in a run, and what was typed survives it")
{
    openForm();
    store().verifyAccessNow();
    CHECK(memory.timesAsked == 0);
    CHECK(store().captureIssue() == "Access is not active for this copy yet. Check Settings, then restart this app if "
                                    "macOS asks. This check does not request permission.");
    store().requestScreenAccess();
    const QString enable =
        "Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit and "
        "reopen, your draft will be waiting.";
    CHECK(store().captureIssue() == enable);
    CHECK_FALSE(store().requestingAccess());
    memory.consentOnAsking = true;
    store().requestScreenAccess();
    CHECK(memory.timesAsked == 1);
    CHECK_FALSE(store().screenAccessGranted());
    CHECK(store().captureIssue() == enable);

    AppStore &next = reopen();
    CHECK(next.showCapture());
    CHECK(next.pendingRecording());
    CHECK(next.draftTitle() == "Chapter");
    next.cancelCapture();
    CHECK_FALSE(reopen().showCapture());
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
    store().requestScreenAccess();
    CHECK(store().screenAccessGranted());
    CHECK_FALSE(store().captureIssue());
}

TEST_CASE_FIXTURE(AccessFixture, "a restart ends this process only when another one runs")
{
    openForm();
    const QString prefix = "Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app "
                           "again. Your draft is saved. ";
    SUBCASE("another one runs")
    {
        finish(store().restartForPermission());
        CHECK(timesEnded == 1);
        finish(store().restartForPermission()); // While it is under way, there is no second one.
        CHECK(timesEnded == 1);
        store().requestScreenAccess();
        store().verifyAccessNow();
        CHECK(memory.timesAsked == 0);
        CHECK_FALSE(store().captureIssue());
        return;
    }
    SUBCASE("it is this one")
    {
        started = QCoreApplication::applicationPid();
        finish(store().restartForPermission());
        CHECK(store().captureIssue() == prefix + "macOS reopened the existing process.");
    }
    SUBCASE("there is none")
    {
        startFailure = Failure("Restart", 4, "No such file or directory.");
        finish(store().restartForPermission());
        CHECK(store().captureIssue() == prefix + "No such file or directory.");
    }
    CHECK(timesEnded == 0);
    CHECK_FALSE(store().restartingApp());
    CHECK(store().showCapture()); // Where the message is.
    CHECK(store().draftTitle() == "Chapter");
}

TEST_CASE_FIXTURE(AccessFixture, "access that is granted is tried, as the system says one thing and may do another")
{
    memory.screenAccess = true;
    openForm();
    finish(store().verifyAccessNow());
    CHECK(store().screenAccessGranted());
    memory.displays.clear();
    finish(store().verifyAccessNow());
    CHECK_FALSE(store().screenAccessGranted());
    CHECK(store().captureIssue() == "No display is available.");
}

TEST_CASE_FIXTURE(AccessFixture, "where consent would not help, the desktop's reason is given instead")
{
    memory.noScreenAccess = "There is no screen.";
    openForm();
    store().draftProjectName.set("Thesis");
    finish(store().captureMoment("Chapter", {}, CaptureKind::Checkpoint));
    CHECK(store().captureIssue() == "There is no screen.");
    CHECK(store().projects().isEmpty());
}
