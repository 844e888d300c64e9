// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include <QApplication>
#include <QMenu>
#include <QScrollArea>
#include <QTest>

#include <cstdlib>

using namespace ardeno;

namespace {

struct ItemsFixture : WindowFixture {
    ItemsFixture()
    {
        hasSheets = true;
        Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
        checkpoint.apps = {{"org.editor", "Editor"}, {"tom", "Tom & Jerry"}};
        checkpoint.tabs = {{.title = u"Fi\u202er\u2066st"_qs, .url = "https://one.example/a"},
                           {.title = "", .url = "https://sub.two.example/b", .browserName = "Firefox"},
                           {.title = "Third", .url = "about:blank"}};
        REQUIRE(store().editing.save(checkpoint));
        settle();
    }

    const Checkpoint &saved() { return store().library.checkpoints().first(); }

    QStringList titles(const QString &name) const
    {
        QStringList titles;
        for (int i = 0; i < list(name)->model()->rowCount(); ++i)
            titles << list(name)->model()->index(i, 0).data().toString();
        return titles;
    }

    // The entries of the menu of a row; a disabled one in brackets.
    QStringList menuOf(const QString &name, int row)
    {
        clickRow(list(name), row, Qt::RightButton);
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QStringList entries;
        if (!menu)
            return entries;
        for (const QAction *const action : menu->actions())
            entries << (action->isEnabled() ? action->text() : '(' + action->text() + ')');
        menu->close();
        settle();
        return entries;
    }
};

} // namespace

TEST_CASE_FIXTURE(ItemsFixture, "an item is removed by its row's button or key, and undo puts it back in its place")
{
    CHECK(titles("Browser tabs") == QStringList{"First", "Untitled tab", "Third"});
    list("Browser tabs")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    pictures("items");
    click("Remove tab Untitled tab from checkpoint");
    CHECK(titles("Browser tabs") == QStringList{"First", "Third"});
    CHECK(seesText("Removed Untitled tab"));
    click("Undo");
    CHECK(titles("Browser tabs") == QStringList{"First", "Untitled tab", "Third"});
    CHECK_FALSE(findButton("Undo"));

    QListView *const apps = list("Apps");
    apps->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    CHECK(findButton("Remove Tom & Jerry from this checkpoint"));
    press(Qt::Key_Up);
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    CHECK(seesText("No apps saved in this checkpoint."));
    CHECK(saved().apps.isEmpty());
    click("Undo");
    CHECK(titles("Apps") == QStringList{"Tom & Jerry"}); // Only the last one.
}

TEST_CASE_FIXTURE(ItemsFixture, "the button that removes stands in its row, and nothing moves below Undo when it goes")
{
    QListView *const tabs = list("Browser tabs");
    const auto topOfList = [&] { // On the page, however it is scrolled.
        QWidget *page = tabs;
        while (!qobject_cast<QScrollArea *>(page->parentWidget()->parentWidget()))
            page = page->parentWidget();
        return tabs->mapTo(page, QPoint()).y();
    };
    tabs->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    const auto *const button = findButton("Remove tab Untitled tab from checkpoint");
    REQUIRE(button);
    const QPoint middle = tabs->viewport()->mapFromGlobal(button->mapToGlobal(button->rect().center()));
    const int inRow = tabs->visualRect(tabs->model()->index(0, 0)).center().y();
    CHECK(std::abs(middle.y() - inRow) <= 1);
    const int top = topOfList();
    click("Undo");
    CHECK(topOfList() == top);
}

TEST_CASE_FIXTURE(ItemsFixture, "a write that fails keeps the item and says so")
{
    breakLibrary();
    QListView *const apps = list("Apps");
    apps->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    CHECK(seesText("Something needs attention"));
    pictures("error");
    press(Qt::Key_Return);
    CHECK(titles("Apps") == QStringList{"Editor", "Tom & Jerry"});
    CHECK_FALSE(findButton("Undo"));
}

TEST_CASE_FIXTURE(ItemsFixture, "the menu of a row makes a rule for later captures and shows that there is one")
{
    clickRow(list("Apps"), 1, Qt::RightButton);
    choose("Always exclude Tom && Jerry");
    CHECK(seesText("Tom & Jerry excluded from future captures. This checkpoint is unchanged."));
    CHECK(menuOf("Apps", 1) == QStringList{"(Excluded from future captures)"});
    CHECK(menuOf("Apps", 0) == QStringList{"Always exclude Editor"});
    CHECK(saved().apps.size() == 2);

    clickRow(list("Browser tabs"), 0, Qt::RightButton);
    choose("Always exclude one.example");
    CHECK(seesText("one.example excluded from future tab lists. Visible pages and this checkpoint’s media are "
                   "unchanged."));
    store().rules.excludeDomain("two.example");
    settle();
    CHECK(menuOf("Browser tabs", 1) == QStringList{"(Excluded from future tab captures)"});
    CHECK(menuOf("Browser tabs", 2).isEmpty()); // No website.
    CHECK(saved().tabs.size() == 3);
}

TEST_CASE_FIXTURE(ItemsFixture, "current tabs and window positions are added on request")
{
    memory.tabRecords["com.google.Chrome"] = u"1\u001f7\u001fhttps://new.example/\u001fNew\u001e"_qs;
    click("Add current tabs");
    REQUIRE(eventually([this] { return titles("Browser tabs").contains("New"); }));
    CHECK(seesText("Added 1 current browser tab. Your screenshot is unchanged."));

    CHECK(seesText("No window positions saved yet. New checkpoints include the position and size of visible windows."));
    click("Save current positions");
    REQUIRE(eventually([this] { return findButton("Update to current positions") != nullptr; }));
    click("Show 1 saved window");
    CHECK(titles("Saved windows") == QStringList{"notes.txt"});
    picture("items-windows");
    const std::optional<QList<SavedWindow>> first = saved().windows;
    click("Update to current positions");
    REQUIRE(eventually([this] { return seesText("Window positions replaced"); }));
    picture("items-windows-replaced");
    click("Undo");
    CHECK(saved().windows == first);
    CHECK_FALSE(seesText("Window positions replaced"));
}

TEST_CASE_FIXTURE(WindowFixture, "a sample's items are shown, and nothing changes them")
{
    hasSheets = true;
    seedStarterExample = true;
    openWindow();
    CHECK(list("Browser tabs")->model()->rowCount() == 1);
    CHECK_FALSE(findButton("Add current tabs"));
    CHECK_FALSE(findButton("Save current positions"));
    list("Browser tabs")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    CHECK(list("Browser tabs")->model()->rowCount() == 1);
}
