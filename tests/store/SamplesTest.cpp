// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

struct SamplesFixture : StoreFixture {
    SamplesFixture() { seedStarterExample = true; }

    const QUuid sample = Project::sample().id;
    const QUuid newest = Checkpoint::sample().id;
};

} // namespace

TEST_CASE_FIXTURE(SamplesFixture, "a newcomer sees the sample project, and no operation changes or writes it")
{
    CHECK(store().navigation.selectedProjectID() == sample);
    REQUIRE(store().navigation.selectedProject() != nullptr);
    CHECK(store().navigation.selectedProject()->isSample);
    CHECK(store().navigation.filteredProjects().size() == 1);
    CHECK(store().library.checkpointsFor(sample).size() == 3);
    REQUIRE(store().navigation.selected() != nullptr);
    CHECK(*store().navigation.selected() == store().library.sampleCheckpoint());
    CHECK(store().library.projects().isEmpty());
    CHECK_MESSAGE(store().library.availableProjects().isEmpty(), "nothing is captured into it");
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    CHECK_FALSE(store().drafts.draftProjectID().has_value());

    const Checkpoint shown = store().library.sampleCheckpoint();
    CHECK_FALSE(store().editing.save(shown));
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::title, "changed", newest));
    CHECK_FALSE(store().workspace.removeTab(shown.tabs.first(), newest));
    CHECK_FALSE(store().projects.setProjectBlocker(sample, "reason"));
    CHECK_FALSE(store().projects.setProjectArchived(sample, true));
    blockOn(store().workspace.addCurrentBrowserTabs(newest));
    blockOn(store().workspace.addCurrentWindowLayout(newest));
    blockOn(store().screenshots.importScreenshot(home.filePath("any.png"), newest));
    store().screenshots.removeScreenshot(newest);
    store().deletion.deleteCheckpoint(newest);
    store().deletion.deleteProject(sample);
    CHECK(store().library.sampleHistory().first() == shown);
    CHECK_FALSE(store().messages.error().has_value());
    CHECK_FALSE(QFile::exists(libraryPath()));
    CHECK_FALSE(QFile::exists(root() + '/' + uuidText(newest)));
}

TEST_CASE_FIXTURE(SamplesFixture, "the sample goes with the first project, and is opened by itself only once")
{
    store().navigation.setSearch("First SKETCHES");
    CHECK(store().navigation.filteredProjects().size() == 1);
    store().navigation.setSearch("nothing of that");
    CHECK(store().navigation.filteredProjects().isEmpty());
    store().navigation.setSearch({});
    store().navigation.setShowArchivedProjects(true);
    CHECK(store().navigation.filteredProjects().isEmpty());

    const QUuid own = *store().projects.createProject("Thesis");
    CHECK(store().navigation.filteredProjects() == store().library.projects());
    CHECK(store().library.checkpointsFor(sample).isEmpty());
    CHECK(store().navigation.selectedProjectID() == own);
    store().navigation.selectProject(sample);
    CHECK(store().navigation.selectedProject() == nullptr);

    store().deletion.deleteProject(own);
    reopen();
    CHECK(preferences().value(keys::starterExampleMigrationV2) == true);
    CHECK_FALSE(store().navigation.selectedProjectID() == own);
    store().navigation.showProjects();
    CHECK(store().navigation.filteredProjects().size() == 1);
}

TEST_CASE_FIXTURE(SamplesFixture,
                  "a first project that a command makes is offered, and leaves nothing selected that has gone")
{
    REQUIRE(store().navigation.selectedProjectID() == sample);
    const QUuid first = *store().projects.createProject("Thesis", Audience::Caller);
    CHECK_FALSE(store().navigation.selectedProjectID());
    CHECK_FALSE(store().navigation.selection());
    store().projects.createProject("Garden", Audience::Caller);
    store().setup.requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK(store().drafts.draftProjectID() == first);
}

TEST_CASE_FIXTURE(SamplesFixture, "nothing is made up where a library cannot be read, or samples are not wanted")
{
    writeFile(libraryPath(), "{");
    CHECK(reopen().navigation.filteredProjects().isEmpty());
    CHECK_FALSE(preferences().value(keys::starterExampleMigrationV2).has_value());
    QFile::remove(libraryPath());
    seedStarterExample = false;
    CHECK(reopen().navigation.filteredProjects().isEmpty());
    CHECK_FALSE(store().navigation.selectedProjectID().has_value());
}
