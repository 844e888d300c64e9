// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowMatching.h"

#include "tests/Printing.h"

#include <array>

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
        QList<int> found;
        for (const SavedWindow &window : saved) {
            const WindowMatch match = matching.find(window, live, shown);
            found += match.kind == WindowMatch::Kind::Several ? -1 : int(match.window.windowID);
        }
        return found;
    }
};

} // namespace

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
        Case{"saved without what it showed", {"a"}, {"a /b"}, {1}},
    };
    for (const Case &each : cases) {
        CAPTURE(each.what);
        CHECK(Windows(each.saved, each.live).matches() == each.expected);
    }
}
