// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/ScreenshotImage.h"

#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QTest>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture, "the sample cannot be written on")
{
    seedStarterExample = true;
    openWindow();
    CHECK(seesText("3 saved"));
    CHECK(seesText("Illustrative portfolio design beside a note to check mobile navigation"));
    CHECK_FALSE(findButton("Add image…"));
    CHECK_FALSE(findButton("Replace image…"));
    pictures("sample");

    QTest::mouseClick(note("Where you left off")->viewport(), Qt::LeftButton);
    type("x");
    press(Qt::Key_Escape);
    clickRow(list("Checkpoint history"), 1);
    clickRow(list("Checkpoint history"), 0);
    CHECK_FALSE(note("Where you left off")->text().contains('x'));
    CHECK_FALSE(QFile::exists(libraryPath()));
}

TEST_CASE_FIXTURE(WindowFixture, "a project wants a name, and what was saved into it is said and counted")
{
    openWindow();
    CHECK(seesText("Create a project to save your first checkpoint."));
    pictures("no-projects");
    press(Qt::Key_N, Qt::ControlModifier);
    CHECK(seesText("A home for your work."));
    CHECK(isOff("Create project")); // Without a name there is nothing to create.
    type("  Thesis ");
    CHECK(findButton("Create project"));
    pictures("new-project");
    press(Qt::Key_Return);
    pictures("empty-project");

    press(Qt::Key_S, Qt::ControlModifier);
    REQUIRE(eventually([this] { return seesText("Checkpoint saved."); }));
    CHECK(seesText(u"1 apps · 0 pages · Choose what to reopen"_qs));
    CHECK(findButton("Replace image…"));
    REQUIRE(find<ScreenshotImage>());
    CHECK(eventually([this] { return find<ScreenshotImage>()->isShown(); }));
    picture("saved");
    click("Dismiss the message");
    CHECK_FALSE(seesText("Checkpoint saved."));
}

TEST_CASE_FIXTURE(WindowFixture,
                  "a quick list ends on an empty line, is taken back by undo, and kept by a click elsewhere")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    QuickListEditor *const editor = note("Your next small step");
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
    QTest::mouseClick(note("Where you left off")->viewport(), Qt::LeftButton);
    type("one");
    press(Qt::Key_PageDown, Qt::ControlModifier); // The next checkpoint.
    CHECK(seesText("Older"));
    CHECK(store().library.checkpoint(newer.id)->objective == u"• one"_qs);
    CHECK(store().library.checkpoint(older.id)->objective.isEmpty());
    CHECK(store().navigation.selection() == older.id); // A late write does not pull the old one back.
    QTest::mouseClick(note("Where you left off")->viewport(), Qt::LeftButton);
    type("two");
    window->close();
    CHECK(store().library.checkpoint(older.id)->objective == u"• two"_qs);
}

TEST_CASE_FIXTURE(WindowFixture, "text composed with an input method is taken as it is composed")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    QuickListEditor *const editor = note("Where you left off");
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
    pictures("blocked");
    click("All projects");
    CHECK(seesText("WAITING FOR"));
    CHECK(seesText(u"0 active · 1 blocked"_qs));
    pictures("overview-blocked");
    click("Actions for Thesis");
    choose("Mark active");
    CHECK(seesText(u"1 active · 0 blocked"_qs));
}
