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
    QUuid project = *store().createProject("Thesis");
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
        return finish(store().saveMoment(request));
    }
};

bool says(const AppStore &store, const QString &part)
{
    return !store.sentences().filter(part).isEmpty();
}

} // namespace

TEST_CASE_FIXTURE(MessagesFixture, "what went wrong stays until it is dismissed or the same has succeeded")
{
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    finish(store().restore(saved, ResumeChoice::missing, false));
    const QString ended = "Could not open: Viewer (it ended with an error)";
    REQUIRE(store().error() == ended);
    const std::optional<QString> notice = store().notice();
    REQUIRE(notice.has_value());

    // A note that is kept while somebody types, and a blank name, take nothing away.
    CHECK(store().updateNote(&Checkpoint::objective, "typed", saved.id));
    store().createProject("  ");
    CHECK(store().error() == ended);
    CHECK(store().notice() == notice);

    breakLibrary();
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "more", saved.id));
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "even more", saved.id));
    CHECK(store().error()->startsWith("Could not save this checkpoint: "));
    CHECK_MESSAGE(store().sentences().size() == 2, "the same is said once");
    REQUIRE(QDir(libraryPath()).removeRecursively());
    REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    CHECK(store().updateNote(&Checkpoint::objective, "even more", saved.id));
    CHECK_MESSAGE(store().error() == ended, "the write that failed has succeeded, the resume has not");
    store().dismissError();
    CHECK_FALSE(store().error());
}

TEST_CASE_FIXTURE(MessagesFixture,
                  "whoever gives a command is told how it ended, and the window keeps its own messages")
{
    const QUuid shown = *store().createProject("Shown");
    store().draftTitle.set("half written");
    store().report("Something else.", "capture");
    store().confirm("Done.");
    memory.pictureFailure = Failure("Capture", 1, "There is no picture.");
    const CaptureRequest request{project, "two", {}, false};
    const Outcome failed = finish(store().saveMoment(request, Audience::Caller));
    CHECK_FALSE(failed);
    CHECK(failed.captureIssue->endsWith("There is no picture."));
    CHECK_FALSE(store().captureIssue().has_value());
    CHECK(store().sentences() == QStringList{"Something else."});

    memory.pictureFailure.reset();
    const Outcome done = finish(store().saveMoment(request, Audience::Caller));
    REQUIRE(done);
    CHECK(done.notice == "Checkpoint saved.");
    CHECK(store().checkpoint(*done)->title == "two");
    CHECK(store().createProject("Third", Audience::Caller));
    CHECK(store().createProject("Thesis", Audience::Caller).id == project);
    REQUIRE(finish(store().startSession(request, Audience::Caller)));
    CHECK(finish(store().stop(Audience::Caller)));
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    CHECK(finish(store().restore(saved, ResumeChoice::missing, false, Audience::Caller)).error);
    CHECK(store().excludeDomain("bank.example", Audience::Caller));
    CHECK(store().selectedProjectID() == shown);
    CHECK_FALSE(store().selection().has_value());
    CHECK(store().draftProjectID() == shown);
    CHECK(store().draftTitle() == "half written");
    CHECK(store().sentences() == QStringList{"Something else."});
    CHECK(store().notice() == "Done.");
    CHECK_FALSE(store().showNewsletterPrompt());
    CHECK(reopen().selectedProjectID() == shown);
}

TEST_CASE_FIXTURE(MessagesFixture, "whatever ends an operation is said")
{
    memory.whileComposing = [] { throw std::bad_alloc(); };
    CHECK(save("two").captureIssue.has_value());
    memory.whileComposing = [] { throw std::runtime_error("a library's own words"); };
    CHECK(save("two").captureIssue->contains("a library's own words"));
    CHECK_FALSE(store().busy());
    CHECK_FALSE(store().working());
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
        REQUIRE_FALSE(store().isLibraryRead());
        replaceLibrary(other);
        project = *theirs.projectID;
        expectedProject = "Other";
        expectedRemark = "could not be read at first";
    }
    const Outcome outcome = save("ours");
    REQUIRE(outcome);
    CHECK_MESSAGE(store().project(*store().checkpoint(*outcome)->projectID)->name == expectedProject,
                  "the project goes with its checkpoint");
    CHECK(store().isLibraryRead());
    CHECK(says(store(), expectedRemark));
    CHECK_FALSE(says(store(), "left in place"));
    CHECK(store().checkpoint(theirs.id));
    CHECK(reopen().checkpoint(*outcome)->title == "ours");
    CHECK(store().checkpoint(theirs.id));

    replaceLibrary(other);
    const Outcome lost = store().updateNote(&Checkpoint::title, "x", *outcome);
    CHECK_FALSE(lost);
    CHECK_MESSAGE(lost.error->contains("no longer in the library"), "the other library does not have it");
    CHECK_FALSE(store().checkpoint(*outcome));
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
    CHECK(store().checkpoints().size() == 2);
    CHECK(reopen().checkpoint(saved.id));
    CHECK(store().checkpoint(*outcome));
}

TEST_CASE_FIXTURE(MessagesFixture, "the copy of an unreadable library is named until the user has seen it")
{
    writeFile(libraryPath(), "{\"version\":2,\"projects\":[");
    CHECK(says(reopen(), "have been left in place"));
    project = *store().createProject("New");
    REQUIRE(store().remarks().size() == 1);
    const Remark remark = store().remarks().first();
    CHECK(fileBytes(remark.file.value()) == "{\"version\":2,\"projects\":[");
    CHECK(remark.sentence.contains(*remark.file));
    CHECK_FALSE(says(store(), "have been left in place"));

    CHECK_MESSAGE(reopen().remarks().value(0).file == remark.file, "also at the next start");
    store().dismiss(store().remarks().first());
    CHECK(reopen().remarks().isEmpty());

    writeFile(libraryPath(), "{}");
    CHECK(store().setProjectBlocker(project, "waiting"));
    CHECK_MESSAGE(says(store(), "your checkpoints have been written anew"), "what is in memory is not lost");
}

TEST_CASE_FIXTURE(MessagesFixture, "a session that cannot be written is kept and goes with the next change")
{
    store().draftProjectID.set(project);
    finish(store().captureMoment("Ablation", {}, CaptureKind::Session));
    memory.recordingEvents.failed(Failure::system(ENOSPC));
    QCoreApplication::processEvents();
    store().dismissError();
    CHECK_MESSAGE(store().recordingFailure() == QString("No space left on device"),
                  "dismissing the message mends nothing");
    breakLibrary();
    const Outcome stopped = finish(store().stop());
    REQUIRE_FALSE(stopped);
    CHECK_FALSE(store().recordingFailure());
    CHECK(says(store(), u"Your work session “Ablation” is kept in "_qs));
    CHECK_FALSE(store().saveUnsavedSessions());

    REQUIRE(QDir(libraryPath()).removeRecursively());
    REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    SUBCASE("asked for")
    {
        CHECK(store().saveUnsavedSessions());
    }
    SUBCASE("with whatever is written next")
    {
        CHECK(store().updateNote(&Checkpoint::title, "renamed", saved.id));
    }
    CHECK(says(store(), u"Your work session “Ablation” has been saved now."_qs));
    CHECK_FALSE(says(store(), "is kept in "));
    CHECK(reopen().checkpoint(*stopped.id)->title == "Ablation");
    CHECK(store().checkpoints().size() == 2);
}

TEST_CASE_FIXTURE(MessagesFixture, "what was asked while something else went on is done after it, and waited for")
{
    store().draftProjectID.set(project);
    finish(store().captureMoment("Ablation", {}, CaptureKind::Session));
    QCoro::Task<ResumeOutcome> resuming = store().restore(saved, ResumeChoice::missing, false);
    REQUIRE(store().busy());
    const Outcome stopped = finish(store().stop());
    CHECK(stopped);
    finish(std::move(resuming));
    CHECK_FALSE(finish(store().stop()).id.has_value());

    memory.tabRecords["com.google.Chrome"] = u"1\u001f7\u001fhttps://a.example/\u001fOpen\u001e"_qs;
    QCoro::Task<Outcome> adding = store().addCurrentBrowserTabs(saved.id);
    CHECK_MESSAGE(store().working(), "the end of the program waits for it");
    finish(std::move(adding));
    CHECK_FALSE(store().working());
}

TEST_CASE_FIXTURE(MessagesFixture,
                  "a checkpoint that is saved while the archived projects are listed is shown in its list")
{
    const QUuid archived = *store().createProject("Old");
    store().setProjectArchived(archived, true);
    store().selectProject(archived);
    REQUIRE(store().showArchivedProjects());
    const Outcome outcome = save("two");
    REQUIRE(outcome);
    CHECK_FALSE(store().showArchivedProjects());
    CHECK(store().selection() == outcome.id);
}

TEST_CASE_FIXTURE(MessagesFixture, "a notice leaves with the page it is about, and never comes to another one")
{
    const QString image = home.filePath("image.png");
    writeFile(image, PngWriter::encoded({2, 2}, QByteArray(16, '\x40')));
    const QUuid own = *store().selectedProjectID();
    const QUuid other = *store().createProject("Other");
    const auto announce = [&] {
        store().selectProject(own);
        finish(store().importScreenshot(image, saved.id));
        REQUIRE(store().notice().has_value());
    };
    const std::function<void()> ways[] = {
        [&] { store().selectProject(other); },
        [&] { store().showProjects(); },
        [&] { store().selectCheckpoint(std::nullopt); },
        [&] { store().undoWorkspaceRemoval(); },
    };
    for (const auto &leave : ways) {
        announce();
        leave();
        CHECK_FALSE(store().notice().has_value());
    }
    announce();
    CHECK(store().updateNote(&Checkpoint::objective, "typed", saved.id));
    CHECK_MESSAGE(store().notice(), "a note that is kept while somebody types takes nothing away");

    QCoro::Task<Outcome> late = store().importScreenshot(image, saved.id);
    store().selectProject(other);
    CHECK(finish(std::move(late)));
    CHECK_FALSE(store().notice().has_value());
    announce();
    store().deleteCheckpoint(saved.id);
    CHECK_FALSE(store().notice().has_value());
}
