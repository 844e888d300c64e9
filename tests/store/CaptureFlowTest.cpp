// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(StoreFixture, "a checkpoint without a title is named after the time")
{
    store().drafts.setDraftProjectName("Thesis");
    blockOn(store().form.captureMoment("   ", {}, CaptureKind::Checkpoint));
    CHECK(store().navigation.selected()->title ==
          u"Checkpoint · "_qs + DateText::shortTime(store().navigation.selected()->createdAt));
}

TEST_CASE_FIXTURE(StoreFixture, "only one capture runs at a time")
{
    store().drafts.setDraftProjectName("Thesis");
    auto first = store().form.captureMoment("first", {}, CaptureKind::Checkpoint);
    CHECK(store().operations.busy());
    blockOn(store().form.captureMoment("second", {}, CaptureKind::Checkpoint));
    blockOn(std::move(first));
    CHECK(store().library.checkpoints().size() == 1);
    CHECK(store().library.checkpoints().first().title == "first");
}

TEST_CASE_FIXTURE(StoreFixture, "a project that goes while something is captured for it is not made anew")
{
    for (const CaptureKind kind : {CaptureKind::Checkpoint, CaptureKind::Session}) {
        store().drafts.setDraftProjectID(store().projects.createProject("Thesis").id);
        memory.whileComposing = [this] { CHECK(store().deletion.deleteProject(*store().drafts.draftProjectID())); };
        blockOn(store().form.captureMoment("Title", {}, kind));
        CHECK(store().messages.captureIssue()->startsWith("The project was deleted meanwhile"));
        CHECK(store().drafts.draftTitle() == "Title");
        CHECK_FALSE(store().recorder.recording());
        CHECK(memory.recordings.isEmpty());
        CHECK(store().library.projects().isEmpty());
        CHECK(mediaFolders().isEmpty());
    }
    memory.whileComposing = {};
    const QUuid again = *store().projects.createProject("Thesis");
    memory.whileStarting = [this, again] { CHECK_FALSE(store().deletion.deleteProject(again)); };
    REQUIRE(blockOn(store().form.captureMoment("Title", {}, CaptureKind::Session)));
    // Another program's library does not have it: it comes back with its name.
    QFile::remove(libraryPath());
    CheckpointRepository(root()).saveLibrary({.projects = {Project{.name = "Other"}}});
    REQUIRE(store().projects.createProject("Third"));
    REQUIRE_FALSE(store().library.project(again));
    REQUIRE(blockOn(store().sessions.stop()));
    CHECK(namesOf(store().library.projects()) == QStringList{"Other", "Third", "Thesis"});
}
