// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "tests/store/SavedFixture.h"

#include <utility>

using namespace ardeno;

TEST_CASE_FIXTURE(SavedFixture, "what went wrong stays until it is dismissed or the same has succeeded")
{
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    blockOn(store().resumes.restore(saved, ResumeSelection::missing, false));
    const QString ended = "Could not open: Viewer (it ended with an error)";
    REQUIRE(store().messages.error() == ended);
    const std::optional<QString> notice = store().messages.notice();
    REQUIRE(notice.has_value());

    // A note that is kept while somebody types, and a blank name, take nothing away.
    CHECK(store().editing.updateNote(&Checkpoint::objective, "typed", saved.id));
    store().projects.createProject("  ");
    CHECK(store().messages.error() == ended);
    CHECK(store().messages.notice() == notice);

    breakLibrary();
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "more", saved.id));
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "even more", saved.id));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK_MESSAGE(store().messages.sentences().size() == 2, "the same is said once");
    mendLibrary();
    CHECK(store().editing.updateNote(&Checkpoint::objective, "even more", saved.id));
    CHECK_MESSAGE(store().messages.error() == ended, "the write that failed has succeeded, the resume has not");
    store().messages.dismissError();
    CHECK_FALSE(store().messages.error());
}

TEST_CASE_FIXTURE(SavedFixture, "whoever gives a command is told how it ended, and the window keeps its own messages")
{
    const QUuid shown = *store().projects.createProject("Shown");
    store().drafts.setDraftTitle("half written");
    store().messages.report("Something else.", "capture");
    store().messages.confirm("Done.");
    memory.pictureFailure = Failure("Capture", 1, "There is no picture.");
    const CaptureRequest request{project, "two", {}, false};
    const Outcome failed = blockOn(store().capture.saveMoment(request, Audience::Caller));
    CHECK_FALSE(failed);
    CHECK(failed.captureIssue->endsWith("There is no picture."));
    CHECK_FALSE(store().messages.captureIssue().has_value());
    CHECK(store().messages.sentences() == QStringList{"Something else."});

    memory.pictureFailure.reset();
    const Outcome done = blockOn(store().capture.saveMoment(request, Audience::Caller));
    REQUIRE(done);
    CHECK(done.notice == "Checkpoint saved.");
    CHECK(store().library.checkpoint(*done)->title == "two");
    CHECK(store().projects.createProject("Third", Audience::Caller));
    CHECK(store().projects.createProject("Thesis", Audience::Caller).id == project);
    REQUIRE(blockOn(store().capture.startSession(request, Audience::Caller)));
    CHECK(blockOn(store().sessions.stop(Audience::Caller)));
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    CHECK(blockOn(store().resumes.restore(saved, ResumeSelection::missing, false, Audience::Caller)).error);
    CHECK(store().rules.excludeDomain("bank.example", Audience::Caller));
    CHECK(store().navigation.selectedProjectID() == shown);
    CHECK_FALSE(store().navigation.selection().has_value());
    CHECK(store().drafts.draftProjectID() == shown);
    CHECK(store().drafts.draftTitle() == "half written");
    CHECK(store().messages.sentences() == QStringList{"Something else."});
    CHECK(store().messages.notice() == "Done.");
    CHECK_FALSE(store().newsletter.showNewsletterPrompt());
    CHECK(reopen().navigation.selectedProjectID() == shown);
}

TEST_CASE_FIXTURE(SavedFixture, "a notice leaves with the page it is about, and never comes to another one")
{
    const QString image = home.filePath("image.png");
    writeFile(image, PngWriter::encoded({2, 2}, QByteArray(16, '\x40')));
    const QUuid own = *store().navigation.selectedProjectID();
    const QUuid other = *store().projects.createProject("Other");
    const auto announce = [&] {
        store().navigation.selectProject(own);
        blockOn(store().screenshots.importScreenshot(image, saved.id));
        REQUIRE(store().messages.notice().has_value());
    };
    const std::function<void()> ways[] = {
        [&] { store().navigation.selectProject(other); },
        [&] { store().navigation.showProjects(); },
        [&] { store().navigation.selectCheckpoint(std::nullopt); },
        [&] { store().removals.undoWorkspaceRemoval(); },
    };
    for (const auto &leave : ways) {
        announce();
        leave();
        CHECK_FALSE(store().messages.notice().has_value());
    }
    announce();
    CHECK(store().editing.updateNote(&Checkpoint::objective, "typed", saved.id));
    CHECK_MESSAGE(store().messages.notice(), "a note that is kept while somebody types takes nothing away");

    QCoro::Task<Outcome> late = store().screenshots.importScreenshot(image, saved.id);
    store().navigation.selectProject(other);
    CHECK(blockOn(std::move(late)));
    CHECK_FALSE(store().messages.notice().has_value());
    announce();
    store().deletion.deleteCheckpoint(saved.id);
    CHECK_FALSE(store().messages.notice().has_value());
}
