// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/LiveWindows.h"

#include "tests/Printing.h"

#include <QStringList>

using namespace ardeno;

namespace {

SessionWindow session(const QString &title, const WindowRect &frame)
{
    SessionWindow window;
    window.frame = frame;
    window.tabs = {{"http://h/" + title, title}};
    return window;
}

LiveWindow live(const QString &title, const WindowRect &frame)
{
    return {.title = title, .frame = frame};
}

QStringList titles(const QList<SessionWindow> &windows)
{
    QStringList titles;
    for (const SessionWindow &window : windows)
        titles += window.tabs.first().title;
    return titles;
}

constexpr WindowRect place = {100, 100, 800, 600};
constexpr WindowRect elsewhere = {500, 300, 700, 500};

} // namespace

TEST_CASE("a closed window is no longer listed though a private one stays open")
{
    const LiveWindow shifted = live("Secret - Chromium", {110, 110, 800, 600});
    CHECK(titles(withoutGhosts({session("A", place)}, {shifted})).isEmpty());
    CHECK(titles(withoutGhosts({session("A", place)}, {})).isEmpty());
    CHECK(titles(withoutGhosts({session("A", place), session("B", elsewhere)},
                               {shifted, live("B - Chromium", elsewhere)})) == QStringList{"B"});
}

TEST_CASE("a window is known by its title wherever it is")
{
    const auto isKept = [](const QString &page, const QString &window) {
        return !withoutGhosts({session(page, place)}, {live(window, elsewhere)}).isEmpty();
    };
    CHECK(isKept("A", "A - Chromium"));
    CHECK(isKept("A", u"A — Mozilla Firefox"_qs));
    CHECK(isKept("News - Today", "News - Today - Chromium"));
    CHECK(isKept("Inbox", "(3) Inbox - Chromium"));
    CHECK(isKept("Timer 12:03", "Timer 12:02 - Chromium"));
    CHECK_FALSE(isKept("A", "AB - Chromium"));
    CHECK_FALSE(isKept("A", "B - A - Chromium"));
    CHECK_FALSE(isKept("12:03", "12:03"));
    SessionWindow untitled = session({}, place);
    untitled.tabs = {{"http://127.0.0.1:80/x", {}}};
    CHECK(withoutGhosts({untitled}, {live("127.0.0.1:80/x - Chromium", elsewhere)}).size() == 1);
}

TEST_CASE("a window is known by its place though decoration and scale are counted differently")
{
    const auto isKept = [](const WindowRect &frame) {
        return !withoutGhosts({session("A", place)}, {live("Z", frame)}).isEmpty();
    };
    CHECK(isKept(place));
    CHECK(isKept({104, 100, 792, 596}));   // Without shadows.
    CHECK(isKept({99, 80, 802, 621}));     // With a title bar.
    CHECK(isKept({200, 200, 1600, 1200})); // On a screen of twice the density.
    CHECK_FALSE(isKept({110, 110, 800, 600}));
    CHECK_FALSE(isKept({100, 110, 800, 600}));
    CHECK_FALSE(isKept({110, 100, 800, 600}));
    CHECK_FALSE(isKept(elsewhere));
}

TEST_CASE("each live window vouches for one window only, the surest pairs first")
{
    const QList<SessionWindow> same = {session("A", place), session("A", place), session("B", place)};
    CHECK(titles(withoutGhosts(same, {live("B - Chromium", place), live("A - Chromium", place)})) ==
          QStringList{"A", "B"});

    SUBCASE("and a maximised window with a changed title is kept while there is one that it may be")
    {
        SessionWindow maximised = session("Song one", place);
        maximised.isAtFrame = false;
        const LiveWindow other = live("Another tune - Chromium", {0, 0, 1920, 1080});
        CHECK(withoutGhosts({maximised}, {other}).size() == 1);
        CHECK(titles(withoutGhosts({maximised, session("Another tune", elsewhere)}, {other})) ==
              QStringList{"Another tune"});
    }
}
