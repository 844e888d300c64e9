// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/SavedWindowFinder.h"

#include "tests/Printing.h"

#include <QStringList>

using namespace ardeno;

namespace {

SavedTab savedTab(qint64 window, const QString &page, const QString &id = {})
{
    SavedTab tab{.url = "https://h/" + page, .window = window};
    if (!id.isEmpty())
        tab.browserWindowID = id;
    return tab;
}

NumberedWindow openWindow(qint64 number, const QStringList &pages, const QString &id = {})
{
    NumberedWindow open{.number = number};
    open.window.id = id;
    for (const QString &page : pages)
        open.window.tabs.append(ListedTab{"HTTPS://H:443/" + page, {}});
    return open;
}

// The number of the open window that the saved one is; 0: none.
qint64 found(qint64 window, const QList<SavedTab> &saved, const QList<NumberedWindow> &open)
{
    for (const SavedTab &tab : saved) {
        if (tab.window == window)
            return open.value(windowOfTab(tab, saved, open).value_or(-1)).number;
    }
    return -1;
}

} // namespace

TEST_CASE("a saved window is the open one with its identifier, else with most of its pages, else with its number")
{
    const QList<SavedTab> saved = {savedTab(1, "a"),       savedTab(1, "b"), savedTab(1, "c"),
                                   savedTab(2, "d", "77"), savedTab(3, "e"), savedTab(3, "f")};
    CHECK(found(1, saved, {}) == 0);

    const QList<NumberedWindow> moved = {openWindow(1, {"x"}, "77"), openWindow(3, {"b", "new", "a"}, "5")};
    CHECK(found(1, saved, moved) == 3);
    CHECK(found(2, saved, moved) == 1);
    CHECK(found(3, saved, moved) == 0); // That number is another one's window.

    const QList<NumberedWindow> others = {openWindow(1, {"y", "a"}), openWindow(2, {"z"})};
    CHECK(found(1, saved, others) == 1);
    CHECK(found(2, saved, others) == 2);
    CHECK(found(3, saved, others) == 0);

    // Half of the pages is not most of them.
    CHECK(found(3, saved, {openWindow(5, {"e", "y"})}) == 0);
    CHECK(found(3, saved, {openWindow(5, {"e", "f", "g", "h", "i"})}) == 5);
    CHECK(found(1, saved, {openWindow(8, {"a", "b"}), openWindow(9, {"a", "b", "c"})}) == 9);
}
