// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/LiveWindows.h"

#include "tests/Printing.h"

#include <QStringList>

using namespace ardeno;

namespace {

ListedWindow session(const QString &title, const WindowRect &frame)
{
    ListedWindow window;
    window.frame = frame;
    window.tabs = {{"http://h/" + title, title}};
    return window;
}

LiveWindow live(const QString &title, const WindowRect &frame)
{
    return {.title = title, .frame = frame};
}

// The titles of the windows with this fate.
QStringList titles(WindowFate fate, const QList<ListedWindow> &session, const QList<LiveWindow> &live)
{
    const QList<WindowFate> all = fates(session, live);
    QStringList titles;
    for (qsizetype i = 0; i < session.size(); ++i) {
        if (all[i] == fate)
            titles += session[i].tabs.first().title;
    }
    return titles;
}

using enum WindowFate;

constexpr WindowRect place = {100, 100, 800, 600};
constexpr WindowRect elsewhere = {500, 300, 700, 500};

} // namespace

TEST_CASE("a window is closed only on proof, and else not known to be open")
{
    LiveWindow other = live("Secret - Chromium", {110, 110, 800, 600});
    CHECK(titles(Unknown, {session("A", place)}, {other}) == QStringList{"A"}); // Moved and turned to another page?
    CHECK(titles(Closed, {session("A", place)}, {}) == QStringList{"A"});
    const QList<ListedWindow> two = {session("A", place), session("B", elsewhere)};
    const LiveWindow second = live("B - Chromium", elsewhere);
    CHECK(titles(Open, two, {other, second}) == QStringList{"B"});
    CHECK(titles(Unknown, two, {other, second}) == QStringList{"A"});
    CHECK(titles(Closed, two, {second}) == QStringList{"A"});

    SUBCASE("where a maximised window says nothing of its place")
    {
        ListedWindow maximised = session("A", place);
        maximised.isAtFrame = false;
        CHECK(titles(Unknown, {maximised}, {other}) == QStringList{"A"});
        CHECK(titles(Open, {maximised}, {live("Z - Chromium", place)}) == QStringList{"A"});
        other.isAtFrame = false;
        CHECK(titles(Open, {maximised}, {other}) == QStringList{"A"});
    }
}

TEST_CASE("a window is known by the title of one of its pages wherever it is")
{
    const auto isKept = [](const QString &page, const QString &window) {
        return !titles(Open, {session(page, place)}, {live(window, elsewhere)}).isEmpty();
    };
    CHECK(isKept("A", "A - Chromium"));
    CHECK(isKept("A", u"A — Mozilla Firefox"_qs));
    CHECK(isKept("News - Today", "News - Today - Chromium"));
    CHECK(isKept("Inbox", "(3) Inbox - Chromium"));
    CHECK(isKept("Timer 12:03", "Timer 12:02 - Chromium"));
    CHECK_FALSE(isKept("A", "AB - Chromium"));
    CHECK_FALSE(isKept("A", "B - A - Chromium"));
    CHECK_FALSE(isKept("A", "A - B - Chromium"));
    CHECK_FALSE(isKept("12:03", "12:03"));
    ListedWindow window = session({}, place);
    window.tabs = {{"http://127.0.0.1:80/x", {}}, {"http://h/", "Other"}};
    CHECK(titles(Open, {window}, {live("127.0.0.1:80/x - Chromium", elsewhere)}).size() == 1);
    CHECK(titles(Open, {window}, {live("Other - Chromium", elsewhere)}).size() == 1); // The user turned to it.
}

TEST_CASE("a window is known by its place though decoration and scale are counted differently")
{
    const auto isKept = [](const WindowRect &frame, const WindowRect &written) {
        return !titles(Open, {session("A", written)}, {live("Z", frame)}).isEmpty();
    };
    CHECK(isKept(place, place));
    CHECK(isKept({104, 100, 792, 596}, place));                     // Without shadows.
    CHECK(isKept({99, 80, 802, 621}, place));                       // With a title bar.
    CHECK(isKept({200, 200, 1600, 1200}, place));                   // On a screen of twice the density.
    CHECK(isKept({12, 12, 1264, 1057}, {9, 9, 1052, 880}));         // At 115 dots per inch, as it was seen.
    CHECK(isKept({2406, 1203, 963, 722}, {2000, 1000, 800, 600}));  // The same, far from the origin.
    CHECK(isKept({191, 41, 1538, 997}, {190, 40, 1282, 831}));      // Firefox, which scales sizes alone.
    CHECK_FALSE(isKept({33, 18, 1269, 1062}, {18, 16, 1054, 882})); // A private window at that scale.
    CHECK_FALSE(isKept({2418, 1215, 963, 722}, {2000, 1000, 800, 600}));
    CHECK_FALSE(isKept({110, 110, 800, 600}, place));
    CHECK_FALSE(isKept({100, 110, 800, 600}, place));
    CHECK_FALSE(isKept({110, 100, 800, 600}, place));
    CHECK_FALSE(isKept(elsewhere, place));
}

TEST_CASE("each live window vouches for one window only, the surest pairs first")
{
    const QList<ListedWindow> same = {session("A", place), session("A", place), session("B", place)};
    CHECK(titles(Open, same, {live("B - Chromium", place), live("A - Chromium", place)}) == QStringList{"A", "B"});
}

TEST_CASE("which window it is stays certain while its title changes, unless another one stands there, too")
{
    const QList<ListedWindow> two = {session("A", place), session("B", elsewhere)};
    LiveWindow first = live("X - Chromium", place);
    first.windowID = 1;
    LiveWindow second = live("A - Chromium", elsewhere);
    second.windowID = 2;
    using Certain = QList<std::optional<LiveWindow>>;
    const std::optional<LiveWindow> none;
    CHECK(certainWindows(two, {first}) == Certain{first, none});
    CHECK(certainWindows(two, {first, second}) == Certain{first, second});
    CHECK(certainWindows(two, {second}) == Certain{none, second});
    CHECK(certainWindows(two, {first, first}) == Certain{none, none});
    const LiveWindow renamed = live("New - Chromium", {700, 0, 500, 500});
    CHECK(certainWindows(two, {first, renamed}) == Certain{first, renamed}); // Nothing else is left.
    CHECK(certainWindows(two, {first, renamed, second}) == Certain{first, second});
    CHECK(certainWindows(two, {renamed, renamed}) == Certain{none, none});
}

TEST_CASE("Firefox marks its private windows in every language")
{
    CHECK(isMarkedPrivate(u"A — Mozilla Firefox Private Browsing"_qs));
    CHECK(isMarkedPrivate(u"A — Mozilla Firefox – Privater Modus"_qs));
    CHECK_FALSE(isMarkedPrivate(u"Mozilla Firefox tips — Mozilla Firefox"_qs));
    CHECK_FALSE(isMarkedPrivate("A - Chromium"));
}

TEST_CASE("what a window shows is told by the page that was written down, and by all that are called so")
{
    LiveWindow shown = live("(3) Order 4711 - Chromium", elsewhere);
    shown.windowID = 1;
    LiveWindow unknown = live("Order 12 - Secret - Chromium", place);
    unknown.windowID = 2;
    ListedWindow window = session("Order 12", place);
    window.tabs.append(ListedTab{"http://bank/", "Order 99"});
    const auto pages = shownPages({session("Other", elsewhere), window}, {shown, unknown});
    REQUIRE(pages.keys() == QList<quint32>{1});
    CHECK(pages[1] == ShownPage{"Order 12 - Chromium", {"http://h/Order 12", "http://bank/"}});
}
