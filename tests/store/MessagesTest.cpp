// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "model/LibraryFailure.h"
#include "support/Finish.h"
#include "tests/store/StoreFixture.h"

#include <new>
#include <stdexcept>
#include <utility>

using namespace ardeno;

namespace {

struct MessagesFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);

    // As another program does: a whole library under the same name.
    void replaceLibrary(const WorkspaceLibrary &library) const
    {
        QFile::remove(libraryPath());
        CheckpointRepository(root()).saveLibrary(library);
    }

    Outcome save(const QString &title)
    {
        const CaptureRequest request{project, title, {}, false};
        return finish(store().capture.saveMoment(request));
    }
};

bool says(const AppStore &store, const QString &part)
{
    return !store.messages.sentences().filter(part).isEmpty();
}

} // namespace

TEST_CASE_FIXTURE(MessagesFixture, "what went wrong stays until it is dismissed or the same has succeeded")
{
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    finish(store().resuming.restore(saved, ResumeChoice::missing, false));
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
    REQUIRE(QDir(libraryPath()).removeRecursively());
    REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    CHECK(store().editing.updateNote(&Checkpoint::objective, "even more", saved.id));
    CHECK_MESSAGE(store().messages.error() == ended, "the write that failed has succeeded, the resume has not");
    store().messages.dismissError();
    CHECK_FALSE(store().messages.error());
}

TEST_CASE_FIXTURE(MessagesFixture,
                  "whoever gives a command is told how it ended, and the window keeps its own messages")
{
    const QUuid shown = *store().projects.createProject("Shown");
    store().drafts.setDraftTitle("half written");
    store().messages.report("Something else.", "capture");
    store().messages.confirm("Done.");
    memory.pictureFailure = Failure("Capture", 1, "There is no picture.");
    const CaptureRequest request{project, "two", {}, false};
    const Outcome failed = finish(store().capture.saveMoment(request, Audience::Caller));
    CHECK_FALSE(failed);
    CHECK(failed.captureIssue->endsWith("There is no picture."));
    CHECK_FALSE(store().messages.captureIssue().has_value());
    CHECK(store().messages.sentences() == QStringList{"Something else."});

    memory.pictureFailure.reset();
    const Outcome done = finish(store().capture.saveMoment(request, Audience::Caller));
    REQUIRE(done);
    CHECK(done.notice == "Checkpoint saved.");
    CHECK(store().library.checkpoint(*done)->title == "two");
    CHECK(store().projects.createProject("Third", Audience::Caller));
    CHECK(store().projects.createProject("Thesis", Audience::Caller).id == project);
    REQUIRE(finish(store().capture.startSession(request, Audience::Caller)));
    CHECK(finish(store().sessions.stop(Audience::Caller)));
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    CHECK(finish(store().resuming.restore(saved, ResumeChoice::missing, false, Audience::Caller)).error);
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

TEST_CASE_FIXTURE(MessagesFixture, "whatever ends an operation is said")
{
    memory.whileComposing = [] { throw std::bad_alloc(); };
    CHECK(save("two").captureIssue.has_value());
    memory.whileComposing = [] { throw std::runtime_error("a library's own words"); };
    CHECK(save("two").captureIssue->contains("a library's own words"));
    CHECK_FALSE(store().operations.busy());
    CHECK_FALSE(store().operations.working());
    memory.whileComposing = {};
    CHECK(save("two"));
}

TEST_CASE_FIXTURE(MessagesFixture, "a library that another program put there is taken over, and the change made in it")
{
    Checkpoint theirs{.title = "theirs", .projectID = QUuid::createUuid(), .createdAt = {5}};
    const WorkspaceLibrary other{.projects = {Project{.id = *theirs.projectID, .name = "Other"}},
                                 .checkpoints = {theirs}};

    QString expectedProject = "Thesis";
    QString expectedRemark = "replaced by another program";
    SUBCASE("while the program runs")
    {
        replaceLibrary(other);
    }
    SUBCASE("after the library could not be read at the start")
    {
        writeFile(libraryPath(), "{");
        reopen();
        REQUIRE_FALSE(store().library.isLibraryRead());
        replaceLibrary(other);
        project = *theirs.projectID;
        expectedProject = "Other";
        expectedRemark = "could not be read at first";
    }
    const Outcome outcome = save("ours");
    REQUIRE(outcome);
    CHECK_MESSAGE(store().library.project(*store().library.checkpoint(*outcome)->projectID)->name == expectedProject,
                  "the project goes with its checkpoint");
    CHECK(store().library.isLibraryRead());
    CHECK(says(store(), expectedRemark));
    CHECK_FALSE(says(store(), "left in place"));
    CHECK(store().library.checkpoint(theirs.id));
    CHECK(reopen().library.checkpoint(*outcome)->title == "ours");
    CHECK(store().library.checkpoint(theirs.id));

    replaceLibrary(other);
    const Outcome lost = store().editing.updateNote(&Checkpoint::title, "x", *outcome);
    CHECK_FALSE(lost);
    CHECK_MESSAGE(lost.error->contains("no longer in the library"), "the other library does not have it");
    CHECK_FALSE(store().library.checkpoint(*outcome));
}

TEST_CASE_FIXTURE(MessagesFixture, "where the library goes for a moment or for good, what is in memory is kept")
{
    bool isCalled = false;
    repository.setWriteCheck([&] { // Another library stands there when it is written, and none when it is read.
        QFile::remove(libraryPath());
        if (!std::exchange(isCalled, true))
            throw Failure("Library", static_cast<int>(LibraryFailure::Changed), {});
    });
    const Outcome outcome = save("two");
    REQUIRE(outcome);
    CHECK(isCalled);
    CHECK_FALSE(says(store(), "replaced"));
    CHECK(store().library.checkpoints().size() == 2);
    CHECK(reopen().library.checkpoint(saved.id));
    CHECK(store().library.checkpoint(*outcome));
}

TEST_CASE_FIXTURE(MessagesFixture, "the copy of an unreadable library is named until the user has seen it")
{
    writeFile(libraryPath(), "{\"version\":2,\"projects\":[");
    CHECK(says(reopen(), "have been left in place"));
    project = *store().projects.createProject("New");
    REQUIRE(store().messages.remarks().size() == 1);
    const Remark remark = store().messages.remarks().first();
    CHECK(fileBytes(remark.file.value()) == "{\"version\":2,\"projects\":[");
    CHECK(remark.sentence.contains(*remark.file));
    CHECK_FALSE(says(store(), "have been left in place"));

    CHECK_MESSAGE(reopen().messages.remarks().value(0).file == remark.file, "also at the next start");
    store().messages.dismiss(store().messages.remarks().first());
    CHECK(reopen().messages.remarks().isEmpty());

    writeFile(libraryPath(), "{}");
    CHECK(store().projects.setProjectBlocker(project, "waiting"));
    CHECK_MESSAGE(says(store(), "your checkpoints have been written anew"), "what is in memory is not lost");
}

TEST_CASE_FIXTURE(MessagesFixture, "a session that cannot be written is kept and goes with the next change")
{
    store().drafts.setDraftProjectID(project);
    finish(store().form.captureMoment("Ablation", {}, CaptureKind::Session));
    memory.recordingEvents.failed(Failure::system(ENOSPC));
    QCoreApplication::processEvents();
    store().messages.dismissError();
    CHECK_MESSAGE(store().recorder.recordingFailure() == QString("No space left on device"),
                  "dismissing the message mends nothing");
    breakLibrary();
    const Outcome stopped = finish(store().sessions.stop());
    REQUIRE_FALSE(stopped);
    CHECK_FALSE(store().recorder.recordingFailure());
    CHECK(says(store(), u"Your work session “Ablation” is kept in "_qs));
    CHECK_FALSE(store().sessions.saveUnsavedSessions());

    REQUIRE(QDir(libraryPath()).removeRecursively());
    REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    SUBCASE("asked for")
    {
        CHECK(store().sessions.saveUnsavedSessions());
    }
    SUBCASE("with whatever is written next")
    {
        CHECK(store().editing.updateNote(&Checkpoint::title, "renamed", saved.id));
    }
    CHECK(says(store(), u"Your work session “Ablation” has been saved now."_qs));
    CHECK_FALSE(says(store(), "is kept in "));
    CHECK(reopen().library.checkpoint(*stopped.id)->title == "Ablation");
    CHECK(store().library.checkpoints().size() == 2);
}

TEST_CASE_FIXTURE(MessagesFixture, "what was asked while something else went on is done after it, and waited for")
{
    store().drafts.setDraftProjectID(project);
    finish(store().form.captureMoment("Ablation", {}, CaptureKind::Session));
    QCoro::Task<ResumeOutcome> resuming = store().resuming.restore(saved, ResumeChoice::missing, false);
    REQUIRE(store().operations.busy());
    const Outcome stopped = finish(store().sessions.stop());
    CHECK(stopped);
    finish(std::move(resuming));
    CHECK_FALSE(finish(store().sessions.stop()).id.has_value());

    memory.tabRecords["com.google.Chrome"] = u"1\u001f7\u001fhttps://a.example/\u001fOpen\u001e"_qs;
    QCoro::Task<Outcome> adding = store().workspace.addCurrentBrowserTabs(saved.id);
    CHECK_MESSAGE(store().operations.working(), "the end of the program waits for it");
    finish(std::move(adding));
    CHECK_FALSE(store().operations.working());
}

TEST_CASE_FIXTURE(MessagesFixture,
                  "a checkpoint that is saved while the archived projects are listed is shown in its list")
{
    const QUuid archived = *store().projects.createProject("Old");
    store().projects.setProjectArchived(archived, true);
    store().navigation.selectProject(archived);
    REQUIRE(store().navigation.showArchivedProjects());
    const Outcome outcome = save("two");
    REQUIRE(outcome);
    CHECK_FALSE(store().navigation.showArchivedProjects());
    CHECK(store().navigation.selection() == outcome.id);
}

TEST_CASE_FIXTURE(MessagesFixture, "a notice leaves with the page it is about, and never comes to another one")
{
    const QString image = home.filePath("image.png");
    writeFile(image, PngWriter::encoded({2, 2}, QByteArray(16, '\x40')));
    const QUuid own = *store().navigation.selectedProjectID();
    const QUuid other = *store().projects.createProject("Other");
    const auto announce = [&] {
        store().navigation.selectProject(own);
        finish(store().screenshots.importScreenshot(image, saved.id));
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
    CHECK(finish(std::move(late)));
    CHECK_FALSE(store().messages.notice().has_value());
    announce();
    store().deletion.deleteCheckpoint(saved.id);
    CHECK_FALSE(store().messages.notice().has_value());
}
