// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/SavedFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(SavedFixture, "a note is saved as typed, and what the user looks at by then stays")
{
    const Checkpoint other = saveCheckpoint(*store().projects.createProject("Other"), "two", 2);
    CHECK(store().editing.updateNote(&Checkpoint::nextStep, " • first\n", saved.id));
    CHECK(store().editing.updateNote(&Checkpoint::title, "renamed", saved.id));
    CHECK(store().navigation.selection() == other.id);
    CHECK(store().navigation.selectedProjectID() == other.projectID);
    reopen();
    CHECK(now().nextStep == " • first\n");
    CHECK(now().title == "renamed");

    breakLibrary();
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::objective, "lost", saved.id));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK(now().objective.isEmpty());
    CHECK_MESSAGE(store().editing.updateNote(&Checkpoint::title, "renamed", saved.id), "the same text needs no write");
    CHECK_FALSE(store().editing.updateNote(&Checkpoint::title, "x", QUuid::createUuid()));
}

TEST_CASE_FIXTURE(SavedFixture, "a note that could not be written is kept and written when that is possible")
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

TEST_CASE_FIXTURE(SavedFixture, "a note that was not written by the end comes back with the next start")
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

TEST_CASE_FIXTURE(SavedFixture, "a note that is typed back, or whose checkpoint goes, waits no longer")
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
