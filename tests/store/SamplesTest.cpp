// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Finish.h"
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
    CHECK(store().selectedProjectID() == sample);
    REQUIRE(store().selectedProject() != nullptr);
    CHECK(store().selectedProject()->isSample);
    CHECK(store().filteredProjects().size() == 1);
    CHECK(store().checkpointsFor(sample).size() == 3);
    REQUIRE(store().selected() != nullptr);
    CHECK(*store().selected() == store().sampleCheckpoint());
    CHECK(store().projects().isEmpty());
    CHECK_MESSAGE(store().availableProjects().isEmpty(), "nothing is captured into it");
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::Sheet);
    CHECK_FALSE(store().draftProjectID().has_value());

    const Checkpoint shown = store().sampleCheckpoint();
    CHECK_FALSE(store().save(shown));
    CHECK_FALSE(store().updateNote(&Checkpoint::title, "changed", newest));
    CHECK_FALSE(store().removeTab(shown.tabs.first(), newest));
    CHECK_FALSE(store().setProjectBlocker(sample, "reason"));
    CHECK_FALSE(store().setProjectArchived(sample, true));
    finish(store().addCurrentBrowserTabs(newest));
    finish(store().addCurrentWindowLayout(newest));
    finish(store().importScreenshot(home.filePath("any.png"), newest));
    store().removeScreenshot(newest);
    store().deleteCheckpoint(newest);
    store().deleteProject(sample);
    CHECK(store().sampleHistory().first() == shown);
    CHECK_FALSE(store().error().has_value());
    CHECK_FALSE(QFile::exists(libraryPath()));
    CHECK_FALSE(QFile::exists(root() + '/' + uuidText(newest)));
}

TEST_CASE_FIXTURE(SamplesFixture, "the sample goes with the first project, and is opened by itself only once")
{
    store().search.set("First SKETCHES");
    CHECK(store().filteredProjects().size() == 1);
    store().search.set("nothing of that");
    CHECK(store().filteredProjects().isEmpty());
    store().search.set({});
    store().showArchivedProjects.set(true);
    CHECK(store().filteredProjects().isEmpty());

    const QUuid own = *store().createProject("Thesis");
    CHECK(store().filteredProjects() == store().projects());
    CHECK(store().checkpointsFor(sample).isEmpty());
    CHECK(store().selectedProjectID() == own);
    store().selectProject(sample);
    CHECK(store().selectedProject() == nullptr);

    store().deleteProject(own);
    reopen();
    CHECK(preferences().value(keys::starterExampleMigrationV2) == true);
    CHECK_FALSE(store().selectedProjectID() == own);
    store().showProjects();
    CHECK(store().filteredProjects().size() == 1);
}

TEST_CASE_FIXTURE(SamplesFixture,
                  "a first project that a command makes is offered, and leaves nothing selected that has gone")
{
    REQUIRE(store().selectedProjectID() == sample);
    const QUuid first = *store().createProject("Thesis", Audience::Caller);
    CHECK_FALSE(store().selectedProjectID());
    CHECK_FALSE(store().selection());
    store().createProject("Garden", Audience::Caller);
    store().requestCapture(CaptureKind::Checkpoint, CaptureForm::QuickPanel);
    CHECK(store().draftProjectID() == first);
}

TEST_CASE_FIXTURE(SamplesFixture, "nothing is made up where a library cannot be read, or samples are not wanted")
{
    writeFile(libraryPath(), "{");
    CHECK(reopen().filteredProjects().isEmpty());
    CHECK_FALSE(preferences().value(keys::starterExampleMigrationV2).has_value());
    QFile::remove(libraryPath());
    seedStarterExample = false;
    CHECK(reopen().filteredProjects().isEmpty());
    CHECK_FALSE(store().selectedProjectID().has_value());
}

TEST_CASE("two builds of the samples have the same identifiers and texts")
{
    const QList<Checkpoint> first = Checkpoint::sampleHistory();
    const QList<Checkpoint> second = Checkpoint::sampleHistory();
    QSet<QUuid> ids;
    for (qsizetype i = 0; i < first.size(); ++i) {
        CHECK(first[i].id == second[i].id);
        CHECK(first[i].title == second[i].title);
        CHECK(first[i].projectID == Project::sample().id);
        CHECK(first[i].isSample);
        CHECK((i == 0 || first[i].createdAt < first[i - 1].createdAt));
        ids.insert(first[i].id);
    }
    CHECK(ids.size() == 3);
    CHECK_FALSE(ids.contains(QUuid()));
    CHECK(first[0].tabs.first().safeURL().has_value());
}
