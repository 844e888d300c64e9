// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

QStringList stagingFolders(const QString &root)
{
    return QDir(root).entryList({".deleting-*"}, QDir::Dirs | QDir::Hidden);
}

} // namespace

TEST_CASE_FIXTURE(StoreFixture, "a deleted project takes its checkpoints and media along, and nothing else")
{
    const QUuid doomed = *store().projects.createProject("Doomed");
    const QUuid kept = *store().projects.createProject("Kept");
    const Checkpoint gone = saveCheckpoint(doomed, "gone", 1);
    const Checkpoint stays = saveCheckpoint(kept, "stays", 2);
    store().drafts.setDraftProjectID(doomed);
    store().navigation.selectProject(doomed);

    store().deletion.deleteProject(doomed);

    CHECK_FALSE(store().messages.error().has_value());
    CHECK_FALSE(QFile::exists(mediaFolder(gone)));
    CHECK(QFile::exists(*stays.screenshot));
    CHECK(stagingFolders(root()).isEmpty());
    CHECK_FALSE(store().navigation.selectedProjectID().has_value());
    CHECK_FALSE(store().drafts.draftProjectID().has_value());
    CHECK(reopen().library.projects().size() == 1);
    CHECK(store().library.checkpoints().size() == 1);
}

TEST_CASE_FIXTURE(StoreFixture, "what is deleted keeps its media while that cannot be written")
{
    const QUuid id = *store().projects.createProject("Thesis");
    const Checkpoint checkpoint = saveCheckpoint(id, "one", 1);
    breakLibrary();

    store().deletion.deleteProject(id);

    CHECK(store().messages.error()->startsWith("Could not delete the project: "));
    CHECK_FALSE(store().messages.error()->contains("Some media remains in"));
    store().deletion.deleteCheckpoint(checkpoint.id);
    CHECK(store().messages.error()->startsWith("Could not delete the checkpoint: "));
    CHECK(fileBytes(*checkpoint.screenshot) == "picture of one");
    CHECK(store().library.projects().size() == 1);
    CHECK(stagingFolders(root()).isEmpty());
}

TEST_CASE_FIXTURE(StoreFixture, "media that stand in the way of a leftover are kept, and so is the leftover")
{
    const QUuid id = *store().projects.createProject("Thesis");
    const Checkpoint checkpoint = saveCheckpoint(id, "one", 1);
    const QString leftover =
        root() + "/.deleting-" + uuidText(QUuid::createUuid()) + '/' + uuidText(checkpoint.id) + "/snapshot.png";
    writeFile(leftover, "older");

    reopen();

    CHECK(fileBytes(*checkpoint.screenshot) == "picture of one");
    CHECK(fileBytes(leftover) == "older");
}

TEST_CASE_FIXTURE(StoreFixture, "a deleted checkpoint hands the selection to the next newer, else the next older")
{
    const QUuid id = *store().projects.createProject("Thesis");
    const Checkpoint oldest = saveCheckpoint(id, "oldest", 1);
    const Checkpoint middle = saveCheckpoint(id, "middle", 2);
    const Checkpoint newest = saveCheckpoint(id, "newest", 3);

    store().navigation.selectCheckpoint(middle.id);
    store().deletion.deleteCheckpoint(middle.id);
    CHECK(store().navigation.selection() == newest.id);
    CHECK_FALSE(QFile::exists(mediaFolder(middle)));
    store().deletion.deleteCheckpoint(newest.id);
    CHECK(store().navigation.selection() == oldest.id);
    store().deletion.deleteCheckpoint(oldest.id);
    CHECK_FALSE(store().navigation.selection().has_value());
    CHECK(reopen().library.checkpoints().isEmpty());
}
