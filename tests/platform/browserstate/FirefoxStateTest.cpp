// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/FirefoxState.h"

#include "tests/Printing.h"
#include "tests/platform/browserstate/StateBytes.h"

#include <QStringList>

using namespace ardeno;
using namespace ardeno::sessions;

namespace {

// The titles of all tabs, a window in each text; one text "unreadable" when there is no session.
QStringList titles(const QByteArray &file)
{
    const auto windows = FirefoxState::windows(file);
    if (!windows)
        return {"unreadable"};
    QStringList texts;
    for (const ListedWindow &window : *windows) {
        QStringList pages;
        for (const ListedTab &tab : window.tabs)
            pages += tab.title;
        texts += pages.join(' ');
    }
    return texts;
}

QByteArray tab(const QByteArray &title, const QByteArray &rest = {})
{
    return R"({"entries":[{"url":"http://h/","title":")" + title + R"("}])" + rest + "}";
}

QByteArray session(const QByteArray &tabs, const QByteArray &rest = {})
{
    return R"({"version":["sessionrestore",1],"windows":[{"tabs":[)" + tabs + "]" + rest +
           R"(}],"_closedWindows":[{"tabs":[]}],"session":{"lastUpdate":1}})";
}

} // namespace

TEST_CASE("windows and tabs are listed as Firefox wrote them")
{
    const QByteArray text = R"({"windows":[
        {"tabs":[
            {"entries":[{"url":"http://h/1","title":"One","children":[{"url":"http://frame/"}]},
                        {"url":"http://h/2","title":"Two"},{"url":"http://h/3","title":"Three"}],
             "index":2,"hidden":false,"pinned":true},
            {"index":1,"entries":[]},
            {"userContextId":0},
            {"index":1,"entries":[{"title":"Caf\u00e9 \ud83c\udf88 \"x\"","url":"http://h/?q=\u00e4\/"}]}],
         "selected":4,"screenX":-5,"screenY":20,"width":1280,"height":972,"sizemode":"normal","zIndex":1},
        {"tabs":[],"selected":1},
        {"selected":1,"sizemode":"maximized","isPopup":true,"tabs":[{"entries":[{"url":"http://h/p","title":"Pop"}]}]},
        {"tabs":[{"entries":[{"url":"http://h/s","title":"Secret"}],"index":1}],"isPrivate":true}],
        "_closedWindows":[{"tabs":[{"entries":[{"url":"http://h/old","title":"Old"}],"index":1}]}]})";

    const auto windows = FirefoxState::windows(mozLz4(text));

    REQUIRE(windows.has_value());
    REQUIRE(windows->size() == 2);
    const ListedWindow window = windows->first();
    CHECK(window.tabs == QList<ListedTab>{{"http://h/2", "Two"}, {u"http://h/?q=ä/"_qs, u"Café 🎈 \"x\""_qs}});
    CHECK(window.frame == WindowRect{-5, 20, 1280, 972});
    CHECK(window.selectedTab == 3);
    CHECK(window.isAtFrame);
    CHECK(window.isOrdinary);
    CHECK_FALSE(windows->last().isAtFrame);
    CHECK_FALSE(windows->last().isOrdinary);
    CHECK_FALSE(windows->last().frame.has_value());
}

TEST_CASE("an index out of range shows the nearest page")
{
    const QByteArray entries = R"({"entries":[{"url":"http://h/a","title":"A"},{"url":"http://h/b","title":"B"}])";
    for (const char *index : {"0", "-3", "2", "3", "1e300", "2147483648", "null", R"("x")"})
        CHECK_MESSAGE(titles(mozLz4(session(entries + R"(,"index":)" + index + "}"))) == QStringList{"B"}, index);
    CHECK(titles(mozLz4(session(entries + R"(,"index":1})"))) == QStringList{"A"});
}

TEST_CASE("a page that cuts its title inside a character does not hide the others")
{
    const QStringList expected = {u"A\uFFFD B"_qs};
    CHECK(titles(mozLz4(session(tab(R"(A\ud83c)") + "," + tab("B")))) == expected);
    CHECK(titles(mozLz4(session(R"({"entries":[{"url":"http://h/"}]},{"entries":[{"url":5,"title":[1]}]})"))) ==
          QStringList{" "});
}

TEST_CASE("a file that is not whole is refused")
{
    const QByteArray text = session(tab("A"));
    const QByteArray file = mozLz4(text);
    REQUIRE(titles(file) == QStringList{"A"});
    CHECK(titles({}) == QStringList{"unreadable"});
    CHECK(titles(file.first(11)) == QStringList{"unreadable"});
    CHECK(titles("mozLz41" + file.mid(7)) == QStringList{"unreadable"});
    for (qsizetype length = 12; length < file.size(); ++length)
        CHECK_MESSAGE(titles(file.first(length)) == QStringList{"unreadable"}, length);
    for (const int difference : {1, -1, 1000, 1 << 28, 0x7fffff00})
        CHECK_MESSAGE(titles(mozLz4(text, difference)) == QStringList{"unreadable"}, difference);
    for (const QByteArray &damaged : {session(tab("\xff\xfe")), text.chopped(30), QByteArray("[]"), QByteArray("{}"),
                                      QByteArray(R"({"windows":5})"), QByteArray(R"({"windows":[5]})"), session("5"),
                                      QByteArray("{"), QByteArray(" ")})
        CHECK_MESSAGE(titles(mozLz4(damaged)) == QStringList{"unreadable"}, damaged);
}

TEST_CASE("nesting without end does not exhaust the stack")
{
    constexpr int depth = 200'000;
    const QByteArray deep = QByteArray(depth, '[') + QByteArray(depth, ']');
    CHECK(titles(mozLz4(deep)) == QStringList{"unreadable"});
    // Whether such a session is readable does not matter.
    titles(mozLz4(session(tab("A", R"(,"extData":)" + deep))));
    titles(mozLz4(session(R"({"entries":)" + deep + "}")));
}
