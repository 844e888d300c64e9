// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ProjectOrder.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(StoreFixture, "a project is created once, whatever the case and spaces of its name")
{
    const std::optional<QUuid> id = store().projects.createProject("  Thesis \n").id;
    REQUIRE(id);
    CHECK(store().navigation.selectedProjectID() == id);
    CHECK(store().projects.createProject("Other"));
    CHECK(store().projects.createProject("thesis").id == id);
    CHECK(store().navigation.selectedProjectID() == id);
    CHECK_FALSE(store().projects.createProject(" \t "));
    CHECK_FALSE(store().messages.error().has_value());
    CHECK(namesOf(reopen().library.projects()) == QStringList{"Thesis", "Other"});
    CHECK(store().navigation.selectedProjectID() == id);
}

TEST_CASE_FIXTURE(StoreFixture, "a failed write leaves the published lists as they were and names the reason")
{
    const QUuid id = *store().projects.createProject("Thesis");
    breakLibrary();

    CHECK_FALSE(store().projects.createProject("Other"));
    CHECK(store().messages.error()->startsWith("Could not create the project: "));
    CHECK_FALSE(store().projects.setProjectBlocker(id, "waiting"));
    CHECK(store().messages.error()->startsWith("Could not update the project: "));
    CHECK_FALSE(store().editing.save(Checkpoint{.title = "lost", .projectID = id}));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));

    CHECK(namesOf(store().library.projects()) == QStringList{"Thesis"});
    CHECK_FALSE(store().library.projects().first().blockedReason.has_value());
    CHECK(store().library.checkpoints().isEmpty());
}

TEST_CASE_FIXTURE(StoreFixture, "a blocker is trimmed, may be empty and can be cleared")
{
    const QUuid id = *store().projects.createProject("Thesis");
    CHECK(store().projects.setProjectBlocker(id, "  waiting for data "));
    CHECK(store().library.project(id)->blockedReason == QString("waiting for data"));
    CHECK(store().projects.setProjectBlocker(id, "  "));
    CHECK(reopen().library.project(id)->blockedReason == QString(""));
    CHECK(store().library.project(id)->blockerDescription() == "No reason added yet.");
    CHECK(store().projects.setProjectBlocker(id, std::nullopt));
    CHECK_FALSE(store().library.project(id)->blockedReason.has_value());
    CHECK_FALSE(store().projects.setProjectBlocker(QUuid::createUuid(), "x"));
}

TEST_CASE("a dragged project lands before its target, and hidden projects keep their places")
{
    const Project a{.name = "a"}, b{.name = "b"}, c{.name = "c"}, d{.name = "d"};
    const Project hidden{.name = "h"}, sample{.name = "s", .isSample = true};
    const Project archived{.name = "z", .archivedAt = Date{1}};
    const QList<Project> all = {a, hidden, b, archived, c, sample, d};
    const QList<QUuid> visible = {a.id, b.id, c.id, sample.id, d.id};
    const auto order = [&](const Project &dragged, const Project &target, const QList<QUuid> &rows) {
        const auto moved = ProjectOrder::moved(all, dragged.id, target.id, rows);
        return moved ? namesOf(*moved).join("") : QString("refused");
    };
    CHECK(order(d, a, visible) == "dhazbcs");
    CHECK(order(a, d, visible) == "bhczsad");
    CHECK(order(a, c, {a.id, c.id, d.id}) == "refused"); // It stands there already.
    CHECK(order(d, a, {a.id, c.id, d.id}) == "dhbzasc");
    CHECK(order(a, a, visible) == "refused");
    CHECK(order(sample, a, visible) == "refused");
    CHECK(order(a, archived, visible + QList{archived.id}) == "refused");
    CHECK(order(hidden, a, visible) == "refused");
    CHECK(order(a, Project{}, visible) == "refused");
    CHECK(order(d, a, {a.id, QUuid::createUuid(), d.id}) == "dhbzcsa");
    const auto last = [&](const Project &dragged, const QList<QUuid> &rows) {
        const auto moved = ProjectOrder::moved(all, dragged.id, std::nullopt, rows);
        return moved ? namesOf(*moved).join("") : QString("refused");
    };
    CHECK(last(a, visible) == "bhczsda");
    CHECK(last(a, {a.id, c.id}) == "chbzasd");
    CHECK(last(d, visible) == "refused");
    CHECK(last(a, {}) == "refused");
}

TEST_CASE_FIXTURE(StoreFixture, "a project gets a name that no other has, and one that is not blank")
{
    const QUuid thesis = *store().projects.createProject("Thesis");
    store().projects.createProject("Garden");
    CHECK(store().projects.renameProject(thesis, "  Dissertation "));
    CHECK(namesOf(reopen().library.projects()) == QStringList{"Dissertation", "Garden"});
    CHECK_FALSE(store().projects.renameProject(thesis, " \t"));
    CHECK_FALSE(store().projects.renameProject(QUuid::createUuid(), "Other"));
    CHECK_FALSE(store().messages.error());
    CHECK_FALSE(store().projects.renameProject(thesis, "garden"));
    CHECK(store().messages.error() == u"There is a project named “Garden” already."_qs);
    CHECK(store().projects.renameProject(thesis, "DISSERTATION"));
    CHECK_FALSE(store().messages.error());
    breakLibrary();
    CHECK_FALSE(store().projects.renameProject(thesis, "Other"));
    CHECK(store().messages.error()->startsWith("Could not update the project: "));
    CHECK(store().library.project(thesis)->name == "DISSERTATION");
}

TEST_CASE_FIXTURE(StoreFixture, "an archiving that is not written changes nothing, and what is undone is as it was")
{
    const QUuid thesis = *store().projects.createProject("Thesis");
    REQUIRE(store().projects.setProjectArchived(thesis, true));
    CHECK_FALSE(store().projects.setProjectArchived(thesis, true)); // It is there.
    REQUIRE(store().projects.lastArchiving());
    CHECK_FALSE(store().navigation.selectedProjectID());
    breakLibrary();
    CHECK_FALSE(store().projects.undoArchiving());
    CHECK(store().projects.lastArchiving());
    CHECK(store().library.project(thesis)->archivedAt);
    QDir(libraryPath()).removeRecursively();
    CHECK(store().projects.undoArchiving());
    CHECK(store().navigation.selectedProjectID() == thesis);
    CHECK_FALSE(store().projects.lastArchiving());
    CHECK_FALSE(store().projects.undoArchiving());
    CHECK_FALSE(reopen().library.project(thesis)->archivedAt);
}
