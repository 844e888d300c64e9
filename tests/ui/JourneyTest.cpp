// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/ShownPicture.h"

#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QTest>

using namespace ardeno;

namespace {

QuickListEditor *note(const WindowFixture &fixture, const QString &title)
{
    auto *const found = dynamic_cast<QuickListEditor *>(fixture.widget(title));
    REQUIRE(found);
    return found;
}

} // namespace

TEST_CASE_FIXTURE(WindowFixture, "the sample cannot be written on")
{
    seedStarterExample = true;
    openWindow();
    CHECK(seesText("3 saved"));
    CHECK(seesText("Illustrative portfolio design beside a note to check mobile navigation"));
    CHECK_FALSE(findButton("Add image…"));
    CHECK_FALSE(findButton("Replace image…"));
    picture("sample");

    QTest::mouseClick(note(*this, "Where you left off")->viewport(), Qt::LeftButton);
    type("x");
    press(Qt::Key_Escape);
    clickRow(list("Checkpoint history"), 1);
    clickRow(list("Checkpoint history"), 0);
    CHECK_FALSE(note(*this, "Where you left off")->text().contains('x'));
    CHECK_FALSE(QFile::exists(libraryPath()));
}

TEST_CASE_FIXTURE(WindowFixture, "a project wants a name, and what was saved into it is said and counted")
{
    openWindow();
    CHECK(seesText("Create a project to save your first checkpoint."));
    picture("no-projects");
    press(Qt::Key_N, Qt::ControlModifier);
    CHECK(seesText("A home for your work."));
    CHECK(isOff("Create project")); // Without a name there is nothing to create.
    type("  Thesis ");
    CHECK(findButton("Create project"));
    picture("new-project");
    press(Qt::Key_Return);
    picture("empty-project");

    press(Qt::Key_S, Qt::ControlModifier);
    REQUIRE(eventually([this] { return seesText("Checkpoint saved."); }));
    CHECK(seesText(u"1 apps · 0 pages · Choose what to reopen"_qs));
    CHECK(findButton("Replace image…"));
    REQUIRE(shownPicture(*this));
    CHECK(eventually([this] { return shownPicture(*this)->isShown(); }));
    picture("saved");
    click("Dismiss the message");
    CHECK_FALSE(seesText("Checkpoint saved."));
}

TEST_CASE_FIXTURE(WindowFixture,
                  "a quick list ends on an empty line, is taken back by undo, and kept by a click elsewhere")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    QuickListEditor *const editor = note(*this, "Your next small step");
    QTest::mouseClick(editor->viewport(), Qt::LeftButton);
    CHECK(seesText(u"Enter for next item · Click away to finish"_qs));
    type("milk");
    press(Qt::Key_Return);
    type("eggs");
    press(Qt::Key_Return);
    CHECK(editor->text() == u"• milk\n• eggs\n• "_qs);
    press(Qt::Key_Return);
    CHECK(editor->text() == u"• milk\n• eggs\n"_qs);
    editor->undo();
    CHECK(editor->text() == u"• milk\n• eggs\n• "_qs);
    picture("quick-list");
    // A click elsewhere ends the editing, and what was typed is on disk.
    QTest::mouseClick(window->content(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 500));
    settle();
    CHECK_FALSE(editor->hasFocus());
    CHECK(CheckpointRepository(root()).loadLibrary().checkpoints.first().nextStep == u"• milk\n• eggs\n• "_qs);
}

TEST_CASE_FIXTURE(WindowFixture, "a note is kept when another checkpoint is chosen, and when the window closes")
{
    openProject();
    const auto [older, newer] = saveTwoCheckpoints();
    QTest::mouseClick(note(*this, "Where you left off")->viewport(), Qt::LeftButton);
    type("one");
    press(Qt::Key_PageDown, Qt::ControlModifier); // The next checkpoint.
    CHECK(seesText("Older"));
    CHECK(store().library.checkpoint(newer.id)->objective == u"• one"_qs);
    CHECK(store().library.checkpoint(older.id)->objective.isEmpty());
    CHECK(store().navigation.selection() == older.id); // A late write does not pull the old one back.
    QTest::mouseClick(note(*this, "Where you left off")->viewport(), Qt::LeftButton);
    type("two");
    window->close();
    CHECK(store().library.checkpoint(older.id)->objective == u"• two"_qs);
}

TEST_CASE_FIXTURE(WindowFixture, "a note that cannot be written stays on screen and says so")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    breakLibrary();
    QuickListEditor *const editor = note(*this, "Where you left off");
    QTest::mouseClick(editor->viewport(), Qt::LeftButton);
    type("x");
    press(Qt::Key_Escape);
    CHECK(seesText("Something needs attention"));
    picture("error");
    press(Qt::Key_Return);
    CHECK_FALSE(seesText("Something needs attention"));
    CHECK_FALSE(store().messages.error());
    CHECK(editor->text() == u"• x"_qs);
}

TEST_CASE_FIXTURE(WindowFixture, "text composed with an input method is taken as it is composed")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    QuickListEditor *const editor = note(*this, "Where you left off");
    editor->setFocus();
    const auto compose = [editor](const QString &preedit, const QString &commit) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(editor, &event);
    };
    compose(u"か"_qs, {});
    compose(u"かん"_qs, {});
    compose({}, u"漢"_qs);
    CHECK(editor->text() == u"漢"_qs);
    editor->selectAll();
    press(Qt::Key_Delete);
    compose({}, u"字"_qs); // Committed without composing, as typing is.
    CHECK(editor->text() == u"• 字"_qs);
}

TEST_CASE_FIXTURE(WindowFixture,
                  "search finds titles of checkpoints as well, narrows the overview, and says when nothing matches")
{
    openWindow();
    for (const char *name : {"Thesis", "Garden", "Release"})
        store().projects.createProject(name);
    saveCheckpoint(store().library.projects().at(1).id, "Tomatoes and Thes", 10);
    click("All projects");
    CHECK(findButton("Actions for Release"));
    press(Qt::Key_F, Qt::ControlModifier);
    type("thes");
    CHECK(list("Projects")->model()->rowCount() == 2); // One by name, one by the title of a checkpoint.
    CHECK(findButton("Actions for Garden"));
    CHECK_FALSE(findButton("Actions for Release"));
    picture("search");
    type("xyz");
    CHECK(seesText("No projects match your search."));
    picture("search-nothing");
    press(Qt::Key_Escape);
    CHECK(list("Projects")->model()->rowCount() == 3);
}

TEST_CASE_FIXTURE(WindowFixture,
                  "a project that is dragged is written once for each place passed, and keys move it as well")
{
    openWindow();
    for (const char *name : {"A", "B", "C", "D"})
        store().projects.createProject(name);
    settle();
    QListView *const projects = list("Projects");
    const auto center = [&](int row) {
        return projects->viewport()->mapToGlobal(projects->visualRect(projects->model()->index(row, 0)).center());
    };
    // The X server's own pointer, since a drag takes no other. It moves by itself while the drag runs its own loop.
    const QPoint bottom = center(3);
    const QPoint top = center(0);
    const auto at = [](const QPoint &place) {
        return QStringList{"mousemove", QString::number(place.x()), QString::number(place.y()), "sleep", "0.03"};
    };
    QStringList way = at(bottom) + QStringList{"mousedown", "1"};
    for (int y = bottom.y(); y > top.y(); y -= 6)
        way += at({bottom.x(), y});
    way += at(top) + at(top) + QStringList{"mouseup", "1"};
    int writes = 0;
    const auto counting = store().library.projects.addNotifier([&writes] { ++writes; });
    QProcess pointer;
    pointer.start("xdotool", way);
    REQUIRE(eventually([&] { return pointer.state() == QProcess::NotRunning; }));
    CHECK(eventually([this] { return namesOf(store().library.projects()) == QStringList{"D", "A", "B", "C"}; }));
    CHECK(writes == 3);
    picture("dragged");

    // The keyboard does the same.
    projects->setFocus();
    press(Qt::Key_Down, Qt::AltModifier);
    CHECK(namesOf(store().library.projects()) == QStringList{"A", "D", "B", "C"});
}

TEST_CASE_FIXTURE(WindowFixture,
                  "a project is blocked without a reason, which is written later, and marked active from the overview")
{
    openProject();
    click("Mark blocked…");
    press(Qt::Key_Return); // A reason is optional.
    CHECK(seesText("No reason added yet."));
    click("Edit reason");
    CHECK(seesText("Edit blocker"));
    type(" Approval of the outline ");
    click("Save reason");
    CHECK(seesText("Approval of the outline"));
    picture("blocked");
    click("All projects");
    CHECK(seesText("WAITING FOR"));
    CHECK(seesText(u"0 active · 1 blocked"_qs));
    picture("overview-blocked");
    click("Actions for Thesis");
    choose("Mark active");
    CHECK(seesText(u"1 active · 0 blocked"_qs));
}

TEST_CASE_FIXTURE(WindowFixture, "an archived project can be opened, and comes back from there")
{
    store().projects.setProjectArchived(openProject(), true);
    settle();
    click("All projects");
    CHECK_FALSE(findButton("Actions for Thesis"));
    click("Show archived");
    CHECK(seesText("ARCHIVED"));
    picture("archived");
    click("Open project Thesis");
    CHECK(seesText("Archived"));
    click("Unarchive project");
    CHECK_FALSE(store().library.projects().first().archivedAt);
    click("All projects");
    CHECK(findButton("Actions for Thesis"));
}
