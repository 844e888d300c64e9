// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowMatching.h"

#include "capture/Assignment.h"
#include "capture/BareTitle.h"
#include "tests/Printing.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>
#include <random>

using namespace ardeno;
using namespace ardeno::WindowLayout;

namespace {

// "TITLE PLACE" of a window; without a place nobody knows what it shows.
struct Windows {
    QList<SavedWindow> saved;
    SavedPlaces facts;
    QList<MovableWindow> live;
    PlacesOfWindows shown;

    Windows(const QStringList &savedOnes, const QStringList &liveOnes)
    {
        for (const QString &text : savedOnes) {
            SavedWindow window;
            window.appID = "app";
            window.title = text.section(' ', 0, 0);
            if (const QString place = text.section(' ', 1); !place.isEmpty())
                window.documentURL = place;
            facts.insert(savedPath(window), {PathFacts::Kind::File, savedPath(window)});
            saved.append(window);
        }
        for (const QString &text : liveOnes) {
            const auto id = quint32(live.size() + 1);
            live.append({.windowID = id, .applicationID = "app", .title = text.section(' ', 0, 0)});
            if (const QString place = text.section(' ', 1); !place.isEmpty())
                shown.insert(id, place);
        }
    }

    // Which live window each saved one is, from 1; 0: none, -1: nobody knows.
    QList<int> matches() const
    {
        const WindowMatching matching(saved, facts);
        const WindowMatches all = matching.find(live, shown);
        QList<int> found;
        for (const SavedWindow &window : saved) {
            const WindowMatch match = all.value(window.id);
            found += match.kind == WindowMatch::Kind::Several ? -1 : int(match.window.windowID);
        }
        return found;
    }
};

} // namespace

TEST_CASE("a title is known again without counters, marks of changes and the name of its application")
{
    struct Case {
        const char *title;
        const char *bare;
    };

    const std::array cases = {
        Case{"notes.txt", "notes.txt"},
        Case{"*notes.txt - Editor", "notes.txt"},
        Case{"● notes.txt — Editor", "notes.txt"},
        Case{"notes.txt [*] — EDITOR2", "notes.txt"},
        Case{"(3) Inbox - Editor (new instance)", "Inbox"},
        Case{"a.png - Some Editor [2/4]", "a.png"},
        Case{"notes.txt + (~/work) - EDITOR", "notes.txt (~/work)"},
        Case{"notes (2).txt - draft", "notes (2).txt - draft"},
        Case{"a - b - Editor", "a - b"},
        Case{"Editor", ""},
        Case{"* - Editor", ""},
    };
    for (const Case &each : cases) {
        CAPTURE(each.title);
        CHECK(bareTitle(each.title, QStringList("Editor")) == each.bare);
    }
}

TEST_CASE("rows and columns are put together so that the sum is the greatest")
{
    CHECK(Assignment::best({}).sum == 0);
    CHECK(Assignment::best(QList<QList<qint64>>(2)).columns == QList<qsizetype>{-1, -1});
    const Assignment best = Assignment::best({{40, 30, 0}, {50, 20, 0}, {60, 0, -5}});
    CHECK(best.columns == QList<qsizetype>{1, -1, 0});
    CHECK(best.sum == 90);
    // Against every way there is.
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        QList<QList<qint64>> scores;
        for (int row = 0; row < 4; ++row)
            scores.append({qint64(random() % 9), qint64(random() % 9), qint64(random() % 9), qint64(random() % 9)});
        std::array<qsizetype, 4> order = {0, 1, 2, 3};
        qint64 greatest = 0;
        do {
            qint64 sum = 0;
            for (qsizetype row = 0; row < 4; ++row)
                sum += scores[row][order[size_t(row)]];
            greatest = std::max(greatest, sum);
        } while (std::next_permutation(order.begin(), order.end()));
        CHECK(Assignment::best(scores).sum == greatest);
    }
}

TEST_CASE("what is alike is told apart by number, place and size when together they leave no doubt")
{
    Windows windows({"Untitled", "Untitled"}, {"Untitled", "Untitled"});
    const WindowRect left = {0, 0, 300, 300};
    const WindowRect right = {500, 0, 400, 300};
    windows.saved[0].frame = left;
    windows.saved[1].frame = right;
    windows.live[0].frame = {100, 100, 350, 350};
    windows.live[1].frame = {200, 100, 360, 350};
    CHECK(windows.matches() == QList<int>{-1, -1});
    SUBCASE("sizes of both")
    {
        windows.live[0].frame = {100, 100, 400, 300};
        windows.live[1].frame = {200, 200, 300, 300};
        CHECK(windows.matches() == QList<int>{2, 1});
    }
    SUBCASE("a window that was never closed, whatever it is called now")
    {
        windows.saved[0].windowID = 2;
        windows.saved[0].processID = 7;
        windows.live[1].processID = 7;
        windows.live[1].title = "changed";
        CHECK(windows.matches() == QList<int>{2, 1});
        windows.live[1].processID = 8;
        CHECK_MESSAGE((windows.matches() == QList<int>{-1, -1}), "numbers are given out again");
    }
    SUBCASE("one stands in its place")
    {
        windows.live[1].frame = left;
        WindowMatching matching(windows.saved, windows.facts);
        matching.settle(windows.live, windows.shown, [](const SavedWindow &saved, const MovableWindow &window) {
            return saved.frame == window.frame;
        });
        const WindowMatches all = matching.find(windows.live, windows.shown);
        CHECK(all.value(windows.saved[0].id).window.windowID == 2);
        CHECK(all.value(windows.saved[1].id).window.windowID == 1);
    }
}

TEST_CASE("what nobody can tell apart is not pondered over")
{
    const QStringList many(150, "Untitled");
    const Windows windows(many, many);
    QElapsedTimer clock;
    clock.start();
    CHECK(windows.matches() == QList<int>(150, -1));
    CHECK(clock.elapsed() < 1000);
}

TEST_CASE("a saved window is one live window or none, never a guess")
{
    struct Case {
        const char *what;
        QStringList saved;
        QStringList live;
        QList<int> expected;
    };

    const std::array cases = {
        Case{"by title", {"notes", "x"}, {"other", "notes"}, {2, 0}},
        Case{"a title is exact", {"notes"}, {"Notes", "notes2"}, {0}},
        Case{"several of a title", {"Untitled", "x"}, {"Untitled", "x", "Untitled"}, {-1, 2}},
        Case{"saved ones of one title", {"Untitled", "Untitled"}, {"Untitled"}, {-1, -1}},
        Case{"the only one without a title", {""}, {"anything"}, {1}},
        Case{"without a title beside another", {"", "x"}, {"anything"}, {0, 0}},
        Case{"without a title, and two live ones", {""}, {"", "other"}, {0}},
        Case{"what is shown beats the title", {"a /a"}, {"a /b", "b /a"}, {2}},
        Case{"a window known to show something else", {"a /a"}, {"a /b"}, {0}},
        Case{"one that is not known beside it", {"a /a"}, {"a /b", "a"}, {2}},
        Case{"one title, and what is shown tells", {"a /a", "a /b"}, {"a /b", "a /a"}, {2, 1}},
        Case{"one of two is known, the other is left", {"a /a", "a /b"}, {"a /b", "a"}, {2, 1}},
        Case{"nothing is known of two saved ones", {"a /a", "a /b"}, {"a", "a"}, {-1, -1}},
        Case{"the same twice, and titles tell", {"a /a", "b /a"}, {"b /a", "a /a"}, {2, 1}},
        Case{"the same twice, and titles do not tell", {"a /a", "b /a"}, {"c /a"}, {-1, -1}},
        Case{"the same twice, and one is left", {"a /a", "b /a"}, {"b /a"}, {0, 1}},
        Case{"by a title with marks", {"notes"}, {"*notes"}, {1}},
        Case{"an exact title before one with marks", {"*notes", "notes"}, {"notes", "*notes"}, {2, 1}},
        Case{"saved without what it showed", {"a"}, {"a /b"}, {1}},
    };
    for (const Case &each : cases) {
        CAPTURE(each.what);
        CHECK(Windows(each.saved, each.live).matches() == each.expected);
    }
}
