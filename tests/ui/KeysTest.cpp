// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/Desktop.h"
#include "tests/ui/WindowFixture.h"

#include "support/BlockOn.h"
#include "ui/checkpoint/QuickListEditor.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QScopeGuard>
#include <QScreen>
#include <QTest>

using namespace ardeno;

namespace {

// What eyes and screen readers are told to be selected, which must be one thing.
QString highlighted(QListView *view)
{
    QStringList drawn;
    QStringList told;
    for (const QModelIndex &index : view->selectionModel()->selectedIndexes())
        drawn << index.data(Qt::AccessibleTextRole).toString();
    QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(view);
    for (int i = 0; i < interface->childCount(); ++i) {
        if (interface->child(i)->state().selected)
            told << interface->child(i)->text(QAccessible::Name);
    }
    CHECK(told == drawn);
    return drawn.join(';').section(',', 0, 0);
}

struct KeysFixture : WindowFixture {
    QString shown() const
    {
        return opened->navigation.selectedProject() ? opened->navigation.selectedProject()->name : QString();
    }

    // Without waiting for anything.
    static void hit(QWidget *target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(target, key, modifiers);
    }

    QString alertText() const
    {
        const Sheet *const top = window->sheets().topSheet();
        return top ? top->accessibleDescription() : QString();
    }
};

} // namespace

TEST_CASE_FIXTURE(KeysFixture, "what is highlighted is what is shown, wherever the keys are; it follows when they rest")
{
    openProjects();
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(1); // Each letter begins a word of its own.
    const auto usual = qScopeGuard([interval] { QApplication::setKeyboardInputInterval(interval); });
    QListView *const projects = list("Projects");
    projects->setFocus(Qt::TabFocusReason);
    REQUIRE(shown() == "Dance");
    const QList<std::pair<Qt::Key, QString>> ways = {
        {Qt::Key_Up, "Cellar"},   {Qt::Key_Home, "Apples"},   {Qt::Key_End, "Dance"},      {Qt::Key_B, "Books"},
        {Qt::Key_Down, "Cellar"}, {Qt::Key_PageUp, "Apples"}, {Qt::Key_PageDown, "Dance"},
    };
    for (const auto &[key, name] : ways) {
        CAPTURE(name);
        const QString before = shown();
        hit(projects, key);
        CHECK(projects->currentIndex().data().toString() == name);
        CHECK(shown() == before);
        CHECK(highlighted(projects) == before);
        CHECK(eventually([&] { return shown() == name; }));
        CHECK(highlighted(projects) == name);
    }
    hit(projects, Qt::Key_Home);
    hit(projects, Qt::Key_Return);
    CHECK(shown() == "Apples");
    // On the way back the page stays as it was, with the checkpoint that was chosen.
    hit(projects, Qt::Key_Down);
    hit(projects, Qt::Key_Up);
    REQUIRE(comesToRest(projects));
    CHECK(shown() == "Apples");
}

TEST_CASE_FIXTURE(KeysFixture, "neither a menu nor a press that ends elsewhere moves the highlight")
{
    openProjects();
    saveTwoCheckpoints();
    QListView *const projects = list("Projects");
    clickRow(projects, 0, Qt::RightButton);
    REQUIRE(QApplication::activePopupWidget());
    picture("menu-of-another-row");
    QApplication::activePopupWidget()->close();
    settle();
    CHECK(highlighted(projects) == "Dance");
    CHECK(projects->currentIndex().row() == 3);

    QListView *const strip = list("Checkpoint history");
    const auto at = [&](int row) { return strip->visualRect(strip->model()->index(row, 0)).center(); };
    QTest::mousePress(strip->viewport(), Qt::LeftButton, Qt::NoModifier, at(1));
    QTest::mouseMove(strip->viewport(), at(0));
    QTest::mouseRelease(strip->viewport(), Qt::LeftButton, Qt::NoModifier, at(0) + QPoint(0, 400));
    settle();
    CHECK(highlighted(strip) == "Newer");
    CHECK(strip->currentIndex().row() == 0);
    QTest::mousePress(strip->viewport(), Qt::LeftButton, Qt::NoModifier, at(0));
    QTest::mouseRelease(strip->viewport(), Qt::LeftButton, Qt::NoModifier, at(1));
    settle();
    CHECK(highlighted(strip) == "Newer");

    // A screen reader selects as a click does.
    strip->selectionModel()->select(strip->model()->index(1, 0), QItemSelectionModel::ClearAndSelect);
    settle();
    CHECK(store().navigation.selected()->title == "Older");
    CHECK(highlighted(strip) == "Older");
}

TEST_CASE_FIXTURE(KeysFixture, "a shortcut is about the row that the keys are at, and a question names what goes")
{
    openProjects();
    const auto [older, newer] = saveTwoCheckpoints();
    const auto name = [&](const Checkpoint &checkpoint) {
        return u"“%1”, saved %2 in the project “Dance”."_qs.arg(checkpoint.title,
                                                                DateText::mediumDateShortTime(checkpoint.createdAt));
    };
    QListView *const strip = list("Checkpoint history");
    strip->setFocus(Qt::TabFocusReason);
    hit(strip, Qt::Key_Right);
    hit(strip, Qt::Key_Delete, Qt::ControlModifier);
    settle();
    CHECK(alertText() == name(older));
    pictures("delete-question");
    press(Qt::Key_Return); // Deleting wants its own button.
    CHECK(store().library.checkpoint(older.id));
    hit(strip, Qt::Key_Delete, Qt::ControlModifier);
    click("Delete checkpoint");
    CHECK_FALSE(store().library.checkpoint(older.id));
    CHECK(highlighted(strip) == "Newer");
    CHECK(QApplication::focusWidget() == strip);
    clickRow(strip, 0, Qt::RightButton);
    choose("Delete checkpoint…");
    CHECK(alertText().endsWith(name(newer)));
    press(Qt::Key_Escape);
    // What is saved goes where the keys are.
    QListView *const projects = list("Projects");
    projects->setFocus(Qt::TabFocusReason);
    hit(projects, Qt::Key_Home);
    hit(projects, Qt::Key_S, Qt::ControlModifier);
    REQUIRE(eventually([this] { return seesText("Checkpoint saved."); }));
    CHECK(store().navigation.selected()->projectID == store().library.projects().first().id);
}

TEST_CASE_FIXTURE(KeysFixture, "keys that edit belong to the text that has the focus")
{
    openProjects();
    saveTwoCheckpoints();
    const QList<std::pair<Qt::Key, Qt::KeyboardModifiers>> editing = {
        {Qt::Key_Delete, Qt::ControlModifier},
        {Qt::Key_Backspace, Qt::ControlModifier},
        {Qt::Key_Z, Qt::ControlModifier},
        {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_Left, Qt::ControlModifier},
        {Qt::Key_Home, Qt::ControlModifier},
        {Qt::Key_Delete, Qt::ShiftModifier},
        {Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier},
        {Qt::Key_Delete, Qt::ControlModifier | Qt::KeypadModifier},
    };
    for (const QString field : {"Find a project", "Where you left off", "Your next small step"}) {
        CAPTURE(field);
        widget(field)->setFocus();
        for (const auto &[key, modifiers] : editing) {
            CAPTURE(key);
            type("Da");
            press(key, modifiers);
            CHECK_FALSE(window->sheets().isCovering());
            CHECK(QApplication::focusWidget() == widget(field));
        }
    }
    auto *const search = qobject_cast<QLineEdit *>(widget("Find a project"));
    search->setText("one two");
    search->setFocus();
    search->home(false);
    press(Qt::Key_Delete, Qt::ControlModifier);
    CHECK(search->text() == "two");
    // Out of a text the key is the window's again.
    list("Checkpoint history")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete, Qt::ControlModifier);
    CHECK(window->sheets().isCovering());
}

TEST_CASE_FIXTURE(KeysFixture,
                  "a save that fails gives the focus back to the field, and what is typed meanwhile is lost")
{
    hasSheets = true;
    openProject();
    press(Qt::Key_S, Qt::ControlModifier);
    widget("Your next small step (optional)")->setFocus();
    type("My title");
    memory.pictureFailure = Failure("Capture", 2, "The picture could not be made.");
    int tries = 0;
    memory.whileComposing = [&] {
        ++tries;
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Space})
            press(key);
    };
    for (int attempt = 1; attempt <= 2; ++attempt) {
        press(Qt::Key_Return);
        REQUIRE(eventually([&] { return tries == attempt && !store().form.savingForm(); }));
        QWidget *const field = widget("Your next small step (optional)");
        CHECK(QApplication::focusWidget() == field);
        type(" and");
        settle();
        CHECK_FALSE(store().form.savingForm());
    }
    CHECK(store().drafts.draftNext() == "My title and and");
    CHECK(tries == 2);
    press(Qt::Key_Escape);

    // In the window itself, too: what is off for a while is not left for what is beside it.
    memory.pictureFailure.reset();
    memory.whileComposing = [&] { CHECK_FALSE(QApplication::focusWidget()); };
    button("Save first checkpoint"); // There is none yet.
    store().projects.createProject("Garden");
    saveCheckpoint(*store().navigation.selectedProjectID(), "Chapter", 10);
    settle();
    QAbstractButton *const save = button("Save checkpoint");
    save->setFocus(Qt::TabFocusReason);
    blockOn(store().capture.saveMoment({.projectID = *store().navigation.selectedProjectID(), .title = "By a command"},
                                       Audience::Caller));
    settle();
    CHECK(QApplication::focusWidget() == save);
}

TEST_CASE_FIXTURE(KeysFixture, "what comes unasked waits for a pause in writing, and no key answers it at once")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    const auto isThere = [this] { return window->sheets().isCovering(); };
    for (const QString field : {"Where you left off", "Find a project"}) {
        CAPTURE(field);
        widget(field)->setFocus();
        type("Thes");
        store().messages.report("The disk is full.");
        settle();
        CHECK_FALSE(isThere());
        type("is");
        QElapsedTimer pause;
        pause.start();
        REQUIRE(eventually(isThere));
        CHECK(pause.elapsed() > 500);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Enter}) {
            hit(QApplication::focusWidget(), key);
            settle();
            CHECK(isThere());
        }
        desktop_test::waitUntilRead();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(QApplication::focusWidget(), &held);
        settle();
        CHECK(isThere());
        hit(QApplication::focusWidget(), Qt::Key_Space);
        settle();
        CHECK_FALSE(isThere());
        CHECK(QApplication::focusWidget() == widget(field));
    }
    // Text that is composed is written, too; a click ends the writing.
    QInputMethodEvent composing(u"か"_qs, {});
    QApplication::sendEvent(QApplication::focusWidget(), &composing);
    store().messages.report("The disk is full.");
    settle();
    CHECK_FALSE(isThere());
    REQUIRE(eventually(isThere));
    press(Qt::Key_Escape);
    type("x");
    QTest::mouseClick(window->content(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 500));
    store().messages.report("The disk is full.");
    settle();
    CHECK(isThere());
}

TEST_CASE_FIXTURE(KeysFixture, "a search is opened by Return, entered by the arrow key, cleared by its button")
{
    openProjects();
    press(Qt::Key_F, Qt::ControlModifier);
    CHECK_FALSE(findButton("Clear the search"));
    type("boo");
    picture("searching");
    press(Qt::Key_Return);
    CHECK(shown() == "Books");
    CHECK(QApplication::focusWidget() == widget("Find a project"));
    press(Qt::Key_Down);
    CHECK(QApplication::focusWidget() == list("Projects"));
    click("Clear the search");
    CHECK(store().navigation.search().isEmpty());
    CHECK(QApplication::focusWidget() == widget("Find a project"));
    CHECK_FALSE(findButton("Clear the search"));
    type("zzz");
    CHECK(seesText("No projects match your search."));
    picture("search-nothing-found");
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    CHECK(shown() == "Books");
    CHECK(QApplication::focusWidget() == widget("Find a project"));
    press(Qt::Key_Escape);
    CHECK_FALSE(seesText("No projects match your search."));
    click("All projects");
    store().navigation.setSearch("boo");
    settle();
    CHECK(findButton("Actions for Books"));
    CHECK_FALSE(findButton("Actions for Dance"));
}

TEST_CASE_FIXTURE(KeysFixture,
                  "menus open by the keyboard, the window fills the screen, and what begins with an emoji is whole")
{
    openProjects();
    saveCheckpoint(*store().navigation.selectedProjectID(), "  ", 10);
    settle();
    const QString moment = DateText::mediumDateShortTime(Date{10});
    CHECK(seesText(moment)); // In place of the title.
    CHECK(list("Checkpoint history")->model()->index(0, 0).data().toString() == moment);
    QuickListEditor *const editor = note();
    editor->setFocus();
    QTest::sendKeyEvent(QTest::Click, editor, Qt::Key_unknown, QString::fromUcs4(U"\U0001F680"), Qt::NoModifier);
    CHECK(editor->text() == u"• \U0001F680"_qs);

    const auto opensMenu = [this](const QString &name, const QString &entry) {
        CAPTURE(name);
        widget(name)->setFocus(Qt::TabFocusReason);
        hit(widget(name), Qt::Key_F10, Qt::ShiftModifier);
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        REQUIRE(menu);
        QStringList entries;
        for (const QAction *const action : menu->actions())
            entries << action->text();
        CHECK(entries.contains(entry));
        menu->close();
        settle();
    };
    opensMenu("Projects", "Rename project…");
    opensMenu("Checkpoint history", "Open checkpoint");
    store().navigation.showProjects();
    settle();
    opensMenu("Open project Books", "Rename project…");
    const QSize before = window->size();
    press(Qt::Key_F11);
    CHECK(eventually([this] { return window->size() == window->screen()->size(); }));
    press(Qt::Key_F11);
    CHECK(eventually([&] { return window->size() == before; }));
}
