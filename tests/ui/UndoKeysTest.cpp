// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace ardeno;

namespace {

struct UndoKeys : WindowFixture {
    UndoKeys()
    {
        hasSheets = true;
        hasSettings = true;
    }

    Checkpoint openCheckpoint()
    {
        Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
        checkpoint.apps = {{"org.editor", "Editor"}, {"viewer", "Viewer"}};
        REQUIRE(store().editing.save(checkpoint));
        settle();
        return checkpoint;
    }

    void pressUndo() { press(Qt::Key_Z, Qt::ControlModifier); }

    QList<SavedApp> apps() const { return opened->library.checkpoints().first().apps; }

    bool isArchived() const { return opened->library.projects().first().archivedAt.has_value(); }

    static QString focusedName()
    {
        const QWidget *const focused = QApplication::focusWidget();
        return focused ? focused->accessibleName() : "none";
    }
};

} // namespace

TEST_CASE_FIXTURE(UndoKeys, "Ctrl+Z takes back the newest removal or archiving that the window offers to take back")
{
    const Checkpoint checkpoint = openCheckpoint();
    QWidget *const list = widget("Apps");
    list->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    REQUIRE(apps().size() == 1);
    pressUndo();
    CHECK(apps().size() == 2);
    pressUndo(); // There is nothing else.
    CHECK(apps().size() == 2);

    click("Remove");
    REQUIRE_FALSE(store().library.checkpoints().first().screenshot);
    pressUndo();
    CHECK(store().library.checkpoints().first().screenshot == checkpoint.screenshot);

    store().workspace.removeApp(apps().first(), checkpoint.id);
    store().projects.setProjectArchived(*checkpoint.projectID, true);
    settle();
    REQUIRE(isArchived());
    pressUndo();
    CHECK_FALSE(isArchived());
    CHECK(apps().size() == 1);
    pressUndo();
    CHECK(apps().size() == 2);

    // What is offered on another page stays as it is.
    store().workspace.removeApp(apps().first(), checkpoint.id);
    store().navigation.showProjects();
    settle();
    pressUndo();
    CHECK(apps().size() == 1);
}

TEST_CASE_FIXTURE(UndoKeys, "a text takes its own writing back first, and a sheet keeps the key to itself")
{
    const Checkpoint checkpoint = openCheckpoint();
    store().workspace.removeApp(apps().first(), checkpoint.id);
    settle();
    QuickListEditor *const editor = note();
    editor->setFocus();
    type("x");
    pressUndo();
    CHECK(editor->text().isEmpty());
    CHECK(apps().size() == 1);
    pressUndo();
    CHECK(apps().size() == 2);

    store().workspace.removeApp(apps().first(), checkpoint.id);
    store().sheets.open(&OpenSheets::showSettings);
    store().sheets.open(&OpenSheets::showExclusions);
    REQUIRE(store().rules.excludeDomain("example.com"));
    settle();
    pressUndo();
    CHECK(apps().size() == 1);
    click("Allow example.com again");
    REQUIRE(store().rules.exclusions().domains.isEmpty());
    widget("Website")->setFocus();
    pressUndo();
    CHECK(store().rules.exclusions().domains == QStringList{"example.com"});
}

TEST_CASE_FIXTURE(UndoKeys, "the Delete key asks about the row that the keys are at")
{
    openProject();
    const auto [older, newer] = saveTwoCheckpoints();
    click("Manage checkpoints");
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    REQUIRE(seesText("Delete this checkpoint?"));
    CHECK(window->sheets().topSheet()->accessibleDescription().contains("Older"));
    click("Delete checkpoint");
    CHECK_FALSE(store().library.checkpoint(older.id));
    CHECK(store().library.checkpoint(newer.id));
    click("Done");
    list("Checkpoint history")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    CHECK(seesText("Delete this checkpoint?"));
    press(Qt::Key_Escape);
    list("Projects")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    REQUIRE(seesText("Delete project?"));
    press(Qt::Key_Escape);
    CHECK(store().library.projects().size() == 1);
}

TEST_CASE_FIXTURE(UndoKeys, "what vanishes leaves the focus to its neighbour, and nothing scrolls")
{
    const Checkpoint checkpoint = openCheckpoint();
    const QList<QScrollArea *> pages = window->content()->findChildren<QScrollArea *>();
    REQUIRE(pages.size() == 1);
    QScrollArea *const page = pages.first();
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    widget("Apps")->setFocus(Qt::TabFocusReason);
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    REQUIRE(apps().isEmpty());
    CAPTURE(focusedName());
    CHECK(page->widget()->isAncestorOf(QApplication::focusWidget()));
    QWidget *const after = QApplication::focusWidget();
    CHECK(page->viewport()->rect().intersects(QRect(after->mapTo(page->viewport(), QPoint()), after->size())));

    // By the pointer: what is pressed goes, and what comes next is neither drawn as focused nor scrolled to.
    store().projects.setProjectBlocker(*checkpoint.projectID, QString("Approval"));
    settle();
    const int scrolled = page->verticalScrollBar()->value();
    QAbstractButton *const active = button("Mark active");
    QTest::mouseClick(active, Qt::LeftButton);
    settle();
    REQUIRE_FALSE(active->isVisible());
    CHECK(page->verticalScrollBar()->value() == scrolled);
    CHECK(focusedName() != "none");

    // With the last checkpoint its strip goes, and the page shows what comes next.
    QWidget *const strip = list("Checkpoint history");
    strip->setFocus(Qt::TabFocusReason);
    store().deletion.deleteCheckpoint(checkpoint.id);
    settle();
    CHECK(QApplication::focusWidget() == button("Save first checkpoint"));
}
