// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

struct UnsavedNotesFixture : StoreFixture {
    QUuid project = *store().createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);

    const Checkpoint &now() { return *store().checkpoint(saved.id); }

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
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "first", saved.id));
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "second", saved.id));
    CHECK_FALSE(store().updateNote(&Checkpoint::nextStep, "step", saved.id));
    CHECK(store().unsavedNotes().size() == 2);
    CHECK(store().noteText(&Checkpoint::objective, now()) == "second");
    CHECK(now().objective.isEmpty());
    store().dismissError();
    store().saveUnsavedNotes();
    CHECK_MESSAGE(!store().error(), "who has read it is not told again and again");

    mendLibrary();
    store().saveUnsavedNotes();
    CHECK(now().objective == "second");
    CHECK(now().nextStep == "step");
    CHECK(store().unsavedNotes().isEmpty());
    reopen();
    CHECK(now().objective == "second");
}

TEST_CASE_FIXTURE(UnsavedNotesFixture, "a note that was not written by the end comes back with the next start")
{
    breakLibrary();
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, u"a “note” — \n• two lines"_qs, saved.id));
    opened.reset();
    mendLibrary();
    CHECK(now().objective == u"a “note” — \n• two lines"_qs);
    CHECK(store().unsavedNotes().isEmpty());
    reopen();
    CHECK(now().objective.startsWith("a "));
}

TEST_CASE_FIXTURE(UnsavedNotesFixture, "a note that is typed back, or whose checkpoint goes, waits no longer")
{
    breakLibrary();
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "typed", saved.id));
    CHECK(store().updateNote(&Checkpoint::objective, "", saved.id));
    CHECK(store().unsavedNotes().isEmpty());
    CHECK_FALSE(store().updateNote(&Checkpoint::objective, "typed", saved.id));
    mendLibrary();
    CHECK(store().deleteCheckpoint(saved.id));
    store().saveUnsavedNotes();
    CHECK(store().unsavedNotes().isEmpty());
    CHECK(store().checkpoints().isEmpty());
}
