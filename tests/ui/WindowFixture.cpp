// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include "tests/desktop/Desktop.h"
#include "tests/ui/CutTexts.h"
#include "tests/ui/UnnamedControls.h"
#include "ui/checkpoint/QuickListEditor.h"
#include "ui/controls/Label.h"
#include "ui/settings/SettingsScreens.h"
#include "ui/sheets/SheetScreens.h"
#include "ui/theme/AppTheme.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace ardeno {

void WindowFixture::openWindow()
{
    Screens screens;
    if (hasSheets)
        addSheetScreens(screens, store());
    if (hasSettings)
        addSettingsScreens(&screens, store());
    window = std::make_unique<MainWindow>();
    window->show();
    REQUIRE(QTest::qWaitForWindowActive(window.get()));
    window->open(store(), std::move(screens));
    settle();
}

void WindowFixture::openProjects(const QStringList &names)
{
    openWindow();
    for (const QString &name : names)
        store().projects.createProject(name);
    settle();
}

QUuid WindowFixture::openProject()
{
    openWindow();
    const QUuid project = *store().projects.createProject("Thesis");
    settle();
    return project;
}

WindowFixture::TwoCheckpoints WindowFixture::saveTwoCheckpoints()
{
    const QUuid project = *store().navigation.selectedProjectID();
    const Checkpoint older = saveCheckpoint(project, "Older", 10);
    const Checkpoint newer = saveCheckpoint(project, "Newer", 20);
    settle();
    return {older, newer};
}

void WindowFixture::restart()
{
    window.reset();
    opened.reset();
    openWindow();
}

void WindowFixture::settle()
{
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

bool WindowFixture::eventually(const std::function<bool()> &condition)
{
    const bool held = QTest::qWaitFor(condition, 20'000);
    settle();
    return held;
}

QWidget *WindowFixture::pressable() const
{
    return window->sheets().isCovering() ? window->sheets().topSheet() : window->content();
}

bool WindowFixture::comesToRest(const QWidget *widget)
{
    return eventually([widget] {
        const QList<QTimer *> timers = widget->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        return std::none_of(timers.begin(), timers.end(), [](const QTimer *timer) { return timer->isActive(); });
    });
}

QList<QAbstractButton *> WindowFixture::buttons(const QString &text) const
{
    QList<QAbstractButton *> named = pressable()->findChildren<QAbstractButton *>();
    named.removeIf([&](const QAbstractButton *candidate) {
        return !candidate->isVisible() || (candidate->text() != text && candidate->accessibleName() != text);
    });
    return named;
}

QAbstractButton *WindowFixture::findButton(const QString &text) const
{
    for (QAbstractButton *const candidate : buttons(text)) {
        if (candidate->isEnabled())
            return candidate;
    }
    return nullptr;
}

bool WindowFixture::isOff(const QString &text) const
{
    return !buttons(text).isEmpty() && !findButton(text);
}

QAbstractButton *WindowFixture::button(const QString &text) const
{
    QAbstractButton *const found = findButton(text);
    CAPTURE(text);
    REQUIRE(found);
    return found;
}

void WindowFixture::click(const QString &buttonText)
{
    QTest::mouseClick(button(buttonText), Qt::LeftButton);
    settle();
}

void WindowFixture::press(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget *const target = QApplication::focusWidget() ? QApplication::focusWidget() : window.get();
    const Sheet *const top = window ? window->sheets().topSheet() : nullptr;
    const bool answers = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (answers && top && top->kind() == Sheet::Kind::Alert)
        desktop_test::waitUntilRead();
    QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
    settle();
}

void WindowFixture::type(const QString &text)
{
    REQUIRE(QApplication::focusWidget());
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, character, Qt::NoModifier);
    settle();
}

void WindowFixture::choose(const QString &entry)
{
    REQUIRE(eventually([] { return QApplication::activePopupWidget() != nullptr; }));
    auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    REQUIRE(menu);
    const QList<QAction *> actions = menu->actions();
    const auto found =
        std::find_if(actions.begin(), actions.end(), [&](const QAction *action) { return action->text() == entry; });
    CAPTURE(entry);
    REQUIRE(found != actions.end());
    REQUIRE((*found)->isEnabled());
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(*found).center());
    settle();
}

bool WindowFixture::seesText(const QString &text) const
{
    const QList<QWidget *> all = surface()->findChildren<QWidget *>();
    return std::any_of(all.begin(), all.end(), [&](const QWidget *candidate) {
        const auto *const label = qobject_cast<const QLabel *>(candidate);
        const auto *const field = qobject_cast<const QLineEdit *>(candidate);
        const QString shown = label ? label->text() : field ? field->text() : candidate->accessibleName();
        return candidate->isVisible() && shown == text;
    });
}

QListView *WindowFixture::list(const QString &name) const
{
    auto *const found = qobject_cast<QListView *>(widget(name));
    REQUIRE(found);
    return found;
}

QWidget *WindowFixture::widget(const QString &accessibleName) const
{
    for (QWidget *const candidate : surface()->findChildren<QWidget *>()) {
        const bool isControl = candidate->focusPolicy() != Qt::NoFocus || qobject_cast<QLabel *>(candidate);
        if (candidate->accessibleName() == accessibleName && candidate->isVisible() && isControl)
            return candidate;
    }
    return nullptr;
}

QWidget *WindowFixture::field(const QString &name) const
{
    for (QWidget *const candidate : window->sheets().topSheet()->findChildren<QWidget *>()) {
        if (candidate->accessibleName() == name && candidate->focusPolicy() != Qt::NoFocus)
            return candidate;
    }
    FAIL("There is no field " << name.toStdString());
    return nullptr;
}

QuickListEditor *WindowFixture::note(const QString &title) const
{
    auto *const found = dynamic_cast<QuickListEditor *>(widget(title));
    REQUIRE(found);
    return found;
}

QString WindowFixture::selectedRow(const QListView *view)
{
    const QModelIndexList rows = view->selectionModel()->selectedIndexes();
    return rows.size() == 1 ? rows.first().data().toString() : QString();
}

void WindowFixture::clickRow(QListView *view, int row, Qt::MouseButton which)
{
    const QModelIndex index = view->model()->index(row, 0);
    view->scrollTo(index);
    settle();
    const QPoint place = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), which, Qt::NoModifier, place);
    if (which == Qt::RightButton) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->viewport()->mapToGlobal(place));
        QApplication::sendEvent(view->viewport(), &event);
    }
    settle();
}

void WindowFixture::picture(const QString &name) const
{
    QDir().mkpath(ARDENO_PICTURES);
    CHECK(surface()->grab().save(QString(ARDENO_PICTURES "/%1.png").arg(name)));
}

void WindowFixture::pictures(const QString &name) const
{
    const std::pair<const char *, Appearance> appearances[] = {
        {"-dark", {.scheme = Scheme::Dark}},
        {"-high-contrast", {.scheme = Scheme::Dark, .contrast = Contrast::High, .motion = Motion::Reduced}},
        {"-light", {}},
    };
    for (const auto &[suffix, appearance] : appearances) {
        AppTheme::instance().setAppearance(appearance);
        settle();
        picture(name + suffix);
    }
    CHECK(textsThatAreCut(surface()) == QStringList());
    const ReadScreen screen = readScreen(surface());
    CHECK(screen.unnamed == QStringList());
    CHECK(screen.names.size() > 3);
}

} // namespace ardeno
