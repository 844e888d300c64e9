// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/UnnamedControls.h"
#include "tests/ui/WindowFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QSet>
#include <QTest>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture, "what lies beneath a sheet is not there for screen readers, keys and shortcuts")
{
    openProject();
    CHECK(readScreen(window.get()).names.contains("Mark blocked…"));
    click("Mark blocked…");
    const ReadScreen covered = readScreen(window.get());
    CHECK_FALSE(covered.names.contains("All projects"));
    CHECK_FALSE(covered.names.contains("Save first checkpoint"));
    CHECK(covered.names.contains("Waiting for…"));
    QAccessibleInterface *const sheet = QAccessible::queryAccessibleInterface(window->sheets().topSheet());
    CHECK(sheet->role() == QAccessible::Dialog);
    CHECK(sheet->state().modal);
    CHECK(sheet->text(QAccessible::Name) == "Mark project blocked");

    // The tab key goes round inside the sheet.
    for (int step = 0; step < 8; ++step) {
        press(step < 4 ? Qt::Key_Tab : Qt::Key_Backtab);
        CHECK(window->sheets().topSheet()->isAncestorOf(QApplication::focusWidget()));
    }
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    CHECK_FALSE(store().sheets.showNewProject());
    CHECK(store().library.checkpoints().isEmpty());
    CHECK(window->sheets().topSheet()->isAncestorOf(QApplication::focusWidget()));
    // Nor does a click reach it.
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 115));
    settle();
    CHECK(store().navigation.selectedProjectID());
    CHECK(window->sheets().isCovering());

    press(Qt::Key_Escape);
    CHECK_FALSE(window->sheets().isCovering());
    CHECK_FALSE(store().sheets.editingBlocker());
    CHECK(QApplication::focusWidget() == button("Mark blocked…")); // Back where one was.
    CHECK(readScreen(window.get()).names.contains("All projects"));
}

TEST_CASE_FIXTURE(WindowFixture, "the tab key goes through all cards of a long overview")
{
    openWindow();
    for (int i = 0; i < 40; ++i)
        store().projects.createProject(QString("Project %1").arg(i));
    store().navigation.showProjects();
    settle();
    button("Show archived")->setFocus(Qt::TabFocusReason);
    QStringList reached;
    for (int step = 0; step < 90; ++step) {
        QTest::keyClick(window.get(), Qt::Key_Tab);
        settle();
        reached << QApplication::focusWidget()->accessibleName();
    }
    for (int i = 0; i < 40; ++i) {
        CAPTURE(i);
        CHECK(reached.contains(QString("Open project Project %1").arg(i)));
    }
}
