// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryFailure.h"
#include "tests/store/SavedFixture.h"

#include <utility>

using namespace ardeno;

namespace {

struct LibraryFixture : SavedFixture {
    // As another program does: a whole library under the same name.
    void replaceLibrary(const WorkspaceLibrary &library) const
    {
        QFile::remove(libraryPath());
        CheckpointRepository(root()).saveLibrary(library);
    }
};

bool says(const AppStore &store, const QString &part)
{
    return !store.messages.sentences().filter(part).isEmpty();
}

} // namespace

TEST_CASE_FIXTURE(LibraryFixture, "a library that another program put there is taken over, and the change made in it")
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

TEST_CASE_FIXTURE(LibraryFixture, "where the library goes for a moment or for good, what is in memory is kept")
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

TEST_CASE_FIXTURE(LibraryFixture, "the copy of an unreadable library is named until the user has seen it")
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

TEST_CASE_FIXTURE(LibraryFixture, "a session that cannot be written is kept and goes with the next change")
{
    store().drafts.setDraftProjectID(project);
    blockOn(store().form.captureMoment("Ablation", {}, CaptureKind::Session));
    memory.recordingEvents.failed(Failure::system(ENOSPC));
    QCoreApplication::processEvents();
    store().messages.dismissError();
    CHECK_MESSAGE(store().recorder.recordingFailure() == QString("No space left on device"),
                  "dismissing the message mends nothing");
    breakLibrary();
    const Outcome stopped = blockOn(store().sessions.stop());
    REQUIRE_FALSE(stopped);
    CHECK_FALSE(store().recorder.recordingFailure());
    CHECK(says(store(), u"Your work session “Ablation” is kept in "_qs));
    CHECK_FALSE(store().sessions.saveUnsavedSessions());

    mendLibrary();
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
