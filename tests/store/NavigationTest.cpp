// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/SavedFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(StoreFixture, "selecting a project shows its newest checkpoint, and an archived one in its list")
{
    const QUuid id = *store().projects.createProject("Thesis");
    saveCheckpoint(id, "older", 10);
    const Checkpoint newer = saveCheckpoint(id, "newer", 20);
    saveCheckpoint(id, "oldest", 5);
    store().projects.setProjectArchived(id, true);

    store().navigation.selectProject(id);
    CHECK(store().navigation.selection() == newer.id);
    CHECK(store().navigation.selected()->title == "newer");
    CHECK(store().navigation.showArchivedProjects());
    store().navigation.showProjects();
    CHECK_FALSE(store().navigation.selectedProjectID().has_value());
    CHECK_FALSE(store().navigation.selection().has_value());
    CHECK_FALSE(store().navigation.showArchivedProjects());
}

TEST_CASE_FIXTURE(StoreFixture,
                  "start-up opens the last project, the first one when that is gone, none with the overview")
{
    const QUuid first = *store().projects.createProject("First");
    const QUuid second = *store().projects.createProject("Second");
    CHECK(reopen().navigation.selectedProjectID() == second);

    auto stored = preferences();
    stored.setValue(keys::lastOpenedProjectID, QString("not an identifier"));
    REQUIRE(stored.synchronise());
    CHECK(reopen().navigation.selectedProjectID() == first);

    store().navigation.setLaunchOverview(true);
    CHECK_FALSE(reopen().navigation.selectedProjectID().has_value());
}

TEST_CASE_FIXTURE(StoreFixture,
                  "the search finds names, blockers and titles as people compare them, and what changed since")
{
    const QUuid thesis = *store().projects.createProject("Thesis");
    const QUuid garden = *store().projects.createProject("Garden");
    const QUuid old = *store().projects.createProject("Old");
    store().projects.setProjectBlocker(garden, "Waiting for RAIN");
    store().projects.setProjectArchived(old, true);
    saveCheckpoint(thesis, u"Straße und Café"_qs, 10);
    Checkpoint tomatoes = saveCheckpoint(garden, "Tomatoes", 20);
    const auto found = [this](const QString &text) {
        store().navigation.setSearch(text);
        return namesOf(store().navigation.filteredProjects());
    };
    CHECK(found({}) == QStringList{"Thesis", "Garden"});
    CHECK(found("rain") == QStringList{"Garden"});
    CHECK(found(" rain ").isEmpty()); // As typed.
    CHECK(found("TOMA") == QStringList{"Garden"});
    CHECK(found("STRASSE") == QStringList{"Thesis"});
    CHECK(found(u"cafe\u0301"_qs) == QStringList{"Thesis"}); // The accent composed in another way.
    CHECK(found("s t") == QStringList());                    // No match reaches from one title into the next.
    CHECK(found(QString(QChar(0xFFFF))).isEmpty());
    tomatoes.title = "Beans";
    REQUIRE(store().editing.save(tomatoes));
    CHECK(found("toma") == QStringList());
    CHECK(found("beans") == QStringList{"Garden"});
    // Typing on and going back.
    for (const char *typed : {"b", "be", "bea", "be", "b"})
        CHECK(found(typed) == QStringList{"Garden"});
    CHECK(found("bex") == QStringList());
    CHECK(found("be") == QStringList{"Garden"});
    store().navigation.setShowArchivedProjects(true);
    CHECK(found("old") == QStringList{"Old"});
}

TEST_CASE_FIXTURE(SavedFixture,
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
