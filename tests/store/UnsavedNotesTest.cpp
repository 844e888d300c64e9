// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

struct UnsavedNotesFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);

    const Checkpoint &now() { return *store().library.checkpoint(saved.id); }

    void mendLibrary()
    {
        REQUIRE(QDir(libraryPath()).removeRecursively());
        REQUIRE(QFile::rename(root() + "/moved", libraryPath()));
    }
};

} // namespace

TEST_CASE_FIXTURE(UnsavedNotesFixture, "a note that could not be written is kept and written when that is possible")
{
    breakLibrary();
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "first", saved.id));
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "second", saved.id));
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::nextStep, "step", saved.id));
    CHECK(store().editing.unsavedNotes().size() == 2);
    CHECK(store().editing.noteText(&Checkpoint::objective, now()) == "second");
    CHECK(now().objective.isEmpty());
    store().messages.dismissError();
    store().editing.saveUnsavedNotes();
    CHECK_MESSAGE(!store().messages.error(), "who has read it is not told again and again");

    mendLibrary();
    store().editing.saveUnsavedNotes();
    CHECK(now().objective == "second");
    CHECK(now().nextStep == "step");
    CHECK(store().editing.unsavedNotes().isEmpty());
    reopen();
    CHECK(now().objective == "second");
}

TEST_CASE_FIXTURE(UnsavedNotesFixture, "a note that was not written by the end comes back with the next start")
{
    breakLibrary();
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, u"a “note” — \n• two lines"_qs, saved.id));
    opened.reset();
    mendLibrary();
    CHECK(now().objective == u"a “note” — \n• two lines"_qs);
    CHECK(store().editing.unsavedNotes().isEmpty());
    reopen();
    CHECK(now().objective.startsWith("a "));
}

TEST_CASE_FIXTURE(UnsavedNotesFixture, "a note that is typed back, or whose checkpoint goes, waits no longer")
{
    breakLibrary();
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "typed", saved.id));
    CHECK(store().editing.updateNote(&Checkpoint::objective, "", saved.id));
    CHECK(store().editing.unsavedNotes().isEmpty());
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "typed", saved.id));
    mendLibrary();
    CHECK(store().deletion.deleteCheckpoint(saved.id));
    store().editing.saveUnsavedNotes();
    CHECK(store().editing.unsavedNotes().isEmpty());
    CHECK(store().library.checkpoints().isEmpty());
}
