// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"
#include "ui/theme/AppTheme.h"
#include "ui/theme/PopupSurface.h"

#include <QApplication>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace ardeno;

namespace {

struct PopupFixture : WindowFixture {
    PopupFixture()
    {
        hasSettings = true;
        hasSheets = true;
    }

    QMenu *openMenu() const
    {
        REQUIRE(eventually([] { return qobject_cast<QMenu *>(QApplication::activePopupWidget()) != nullptr; }));
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    QRect windowArea() const { return {window->mapToGlobal(QPoint()), window->size()}; }

    // The panel is rounded, and what lies outside of it is the window below the shadow.
    void checkLooks(QWidget *popup, int margin) const
    {
        CHECK(windowArea().contains(popup->geometry()));
        const QImage shown = popup->grab().toImage();
        const QColor panel = AppTheme::instance().color(Role::Card);
        CHECK(shown.pixelColor(margin + 12, shown.height() / 2) == panel);
        CHECK(shown.pixelColor(margin + 1, margin + 1) != panel);
        const QColor beside = shown.pixelColor(margin - 1, shown.height() / 2);
        const QPoint place = popup->mapToGlobal(QPoint(margin - 1, shown.height() / 2));
        const QColor below = window->grab().toImage().pixelColor(window->mapFromGlobal(place));
        CHECK(beside.lightness() < below.lightness());
        CHECK(beside.lightness() > below.lightness() - 60);
    }
};

bool hasOneKindOfEntries(const QMenu *menu)
{
    QList<QAction *> entries = menu->actions();
    entries.removeIf([](const QAction *action) { return action->isSeparator(); });
    const auto withSymbol =
        std::count_if(entries.begin(), entries.end(), [](const QAction *action) { return !action->icon().isNull(); });
    return withSymbol == 0 || withSymbol == entries.size();
}

} // namespace

TEST_CASE_FIXTURE(PopupFixture, "menus and tooltips are rounded, throw a shadow and stay within the window")
{
    openProject();
    click("More actions");
    QMenu *menu = openMenu();
    checkLooks(menu, PopupSurface::menuMargin);
    CHECK(hasOneKindOfEntries(menu));
    CHECK(menu->font().families() == window->font().families());
    press(Qt::Key_Escape);

    // In the last corner of the window.
    click("All projects");
    QWidget *const card = button("Open project Thesis");
    QContextMenuEvent inCorner(QContextMenuEvent::Mouse, QPoint(5, 5), windowArea().bottomRight() - QPoint(3, 3));
    QApplication::sendEvent(card, &inCorner);
    menu = openMenu();
    checkLooks(menu, PopupSurface::menuMargin);
    CHECK(hasOneKindOfEntries(menu));
    press(Qt::Key_Escape);

    const QString hint = "A <b> hint & that is longer than a line that anybody would want to read, said twice: "
                         "a hint that is longer than a line";
    QWidget *const create = button("New project");
    create->setToolTip(hint);
    QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), create->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(create, &hover);
    QWidget *tip = nullptr;
    REQUIRE(eventually([&] {
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto found = std::find_if(all.begin(), all.end(), [](const QWidget *widget) {
            return widget->inherits("QTipLabel") && widget->isVisible();
        });
        tip = found == all.end() ? nullptr : *found;
        return tip != nullptr;
    }));
    checkLooks(tip, PopupSurface::tipMargin);
    CHECK(tip->width() < 500);
    CHECK(QToolTip::text().contains("&lt;b&gt; hint &amp; that"));
    QToolTip::hideText();
}

TEST_CASE_FIXTURE(PopupFixture, "a sheet fits into the smallest window, and keeps its place when a message comes")
{
    openWindow();
    window->resize(960, 690);
    store().sheets.open(&OpenSheets::showExclusions);
    settle();
    QWidget *const sheet = window->sheets().topSheet();
    REQUIRE(sheet);
    CHECK(window->rect().contains(sheet->geometry()));
    const int top = sheet->y();
    click("Exclude website");
    CHECK(seesText("Enter a valid website domain or an http/https URL."));
    CHECK(sheet->y() == top);
    CHECK(window->rect().contains(sheet->geometry()));
    window->resize(1170, 950);
    settle();
    const int tallTop = sheet->y();
    store().rules.excludeDomain("example.org");
    store().rules.excludeApp({"org.editor", "Text Editor"});
    settle();
    CHECK(sheet->y() == tallTop);
    CHECK(window->rect().contains(sheet->geometry()));
    picture("exclusions-place");
}

TEST_CASE_FIXTURE(PopupFixture, "scroll bars are drawn while they are used, and always with high contrast")
{
    openProject();
    saveTwoCheckpoints();
    window->resize(960, 690);
    settle();
    auto *const page = window->findChild<QScrollArea *>();
    QScrollBar *const bar = page->verticalScrollBar();
    REQUIRE(bar->maximum() > 0);
    const auto isDrawn = [&] {
        const QImage shown = bar->grab().toImage();
        QImage empty = shown;
        empty.fill(shown.pixel(0, 0));
        return shown != empty;
    };
    CHECK(eventually([&] { return !isDrawn(); }));
    bar->setValue(40);
    CHECK(isDrawn());
    CHECK(eventually([&] { return !isDrawn(); }));
    AppTheme::instance().setAppearance({.contrast = Contrast::High});
    CHECK(isDrawn());
    AppTheme::instance().setAppearance({});
}
