// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/SnssReader.h"

#include "tests/Printing.h"
#include "tests/platform/browserstate/StateBytes.h"

#include <QStringList>

#include <limits>

using namespace ardeno;
using namespace ardeno::sessions;

namespace {

std::optional<QList<ListedWindow>> windowsOf(const QByteArray &bytes)
{
    const auto session = SnssReader::read(bytes);
    return session ? std::optional(session->windows) : std::nullopt;
}

// "id: page page | id: page", the page being what stands behind "http://h/".
QString summary(const QByteArray &bytes)
{
    const auto windows = windowsOf(bytes);
    if (!windows)
        return "unreadable";
    QStringList texts;
    for (const ListedWindow &window : *windows) {
        QStringList pages;
        for (const ListedTab &tab : window.tabs)
            pages += QString(tab.url).remove("http://h/");
        texts += window.id.value_or("?") + ": " + pages.join(' ');
    }
    return texts.join(" | ");
}

} // namespace

TEST_CASE("windows come in the order of their creation and tabs in that of the tab strip")
{
    Snss file;
    file.window(20).window(10, 5);
    file.tab(20, 7, 0, "http://h/c").tab(10, 5, 1, "http://h/b").tab(10, 6, 0, "http://h/a", u"A – 日本 🎈"_qs);
    file.record(8, {10, 1}).marker();
    CHECK(summary(file.bytes()) == "10: a b | 20: c");

    const auto windows = windowsOf(file.bytes());
    CHECK(windows->first().tabs.first().title == u"A – 日本 🎈"_qs);
    CHECK(windows->first().frame == WindowRect{5, 10, 800, 600});
    CHECK(windows->first().selectedTab == 1);
    CHECK(windows->first().isAtFrame);

    SUBCASE("and later records change them")
    {
        file.record(0, {20, 5}).record(2, {5, 1}).record(2, {7, 2}).record(14, {10, 1, 2, 3, 4, 3});
        CHECK(summary(file.bytes()) == "10: a | 20: b c");
        CHECK_FALSE(windowsOf(file.bytes())->first().isAtFrame);
    }
    SUBCASE("until they are closed")
    {
        CHECK(summary(file.close(16, 6).bytes()) == "10: b | 20: c");
        CHECK(summary(file.close(17, 20).bytes()) == "10: b");
        CHECK(summary(file.record(8, {20, 0}).bytes()) == "10: b");
    }
    SUBCASE("and windows of apps and popups are told apart")
    {
        file.record(9, {20, 1}).record(15, pickle(numbers({10}) + string8("_crx_app")));
        const auto changed = windowsOf(file.bytes());
        CHECK_FALSE(changed->first().isOrdinary);
        CHECK_FALSE(changed->last().isOrdinary);
    }
}

TEST_CASE("a tab shows the page that its history has come to")
{
    Snss file;
    file.window(1).record(0, {1, 2});
    for (int index = 0; index < 5; ++index)
        file.navigation(2, index, QByteArray("http://h/") + char('a' + index));
    file.record(7, {2, 2}).marker();
    CHECK(summary(file.bytes()) == "1: c");

    SUBCASE("after going back")
    {
        CHECK(summary(file.record(7, {2, 1}).bytes()) == "1: b");
    }
    SUBCASE("after a redirect")
    {
        CHECK(summary(file.navigation(2, 2, "http://h/x").bytes()) == "1: x");
    }
    SUBCASE("after a new page")
    {
        CHECK(summary(file.record(5, {2, 2}).record(7, {2, 2}).bytes()) == "1: b");
    }
    SUBCASE("after the oldest were dropped")
    {
        CHECK(summary(file.record(11, {2, 2}).bytes()) == "1: c");
    }
    SUBCASE("after some were dropped before it")
    {
        CHECK(summary(file.record(24, {2, 0, 1}).bytes()) == "1: c");
    }
    SUBCASE("after it was dropped itself")
    {
        CHECK(summary(file.record(24, {2, 2, 2}).bytes()) == "1: b");
    }
    SUBCASE("when the selected entry is missing, the next one")
    {
        Snss gap;
        gap.window(1).record(0, {1, 2}).navigation(2, 0, "http://h/a").navigation(2, 3, "http://h/d").marker();
        CHECK(summary(gap.record(7, {2, 1}).bytes()) == "1: d");
        CHECK(summary(gap.record(7, {2, 9}).bytes()) == "1: d");
        CHECK(summary(gap.record(7, {2, -5}).bytes()) == "1: d");
    }
}

TEST_CASE("only a file with a whole initial state is believed")
{
    Snss file;
    file.window(1).tab(1, 2, 0, "http://h/a");
    CHECK(summary(file.bytes()) == "unreadable");
    CHECK(summary(Snss().marker().bytes()).isEmpty());
    for (const qint32 version : {0, 1, 2, 4, 5, -1})
        CHECK(summary(Snss(version).window(1).tab(1, 2, 0, "http://h/a").marker().bytes()) == "unreadable");
    CHECK(summary({}) == "unreadable");
    CHECK(summary("SNSS") == "unreadable");
    CHECK(summary("SQLite format 3") == "unreadable");
}

TEST_CASE("a damaged record spoils neither the others nor the program")
{
    Snss file;
    file.window(1).tab(1, 2, 0, "http://h/a").marker();
    const QByteArray whole = file.bytes();
    constexpr qint32 huge = std::numeric_limits<qint32>::max();
    const QByteArray ids = numbers({2, 0});

    SUBCASE("at the end, where the browser is writing")
    {
        for (const QByteArray &tail : {QByteArray("\x09"), number<quint16>(0), number<quint16>(500) + "\x06"})
            CHECK(summary(whole + tail) == "1: a");
    }
    SUBCASE("with lengths that lie")
    {
        file.record(6, number<quint32>(0xFFFFFFFF) + ids);
        file.record(6, number<quint32>(100) + ids + string8("http://h/x") + string16({}));
        for (const qint32 length : {-1, huge, std::numeric_limits<qint32>::min(), 1000})
            file.record(6, pickle(ids + number(length) + "http")).record(6, pickle(ids + string8("") + number(length)));
        CHECK(summary(file.bytes()) == "1: a");
    }
    SUBCASE("with records cut short")
    {
        for (const quint8 command : {0, 2, 5, 6, 7, 8, 9, 11, 14, 15, 16, 17, 24})
            file.record(command, QByteArray("\1\0\0", 3)).record(command, QByteArray());
        CHECK(summary(file.bytes()) == "1: a");
    }
    SUBCASE("with numbers out of range")
    {
        file.record(8, {1, huge}).record(2, {2, -huge}).record(24, {2, huge, huge}).record(24, {2, 0, -huge});
        file.record(11, {2, -1}).record(5, {2, huge}).navigation(2, -1, "http://h/x").record(0, {1, 99});
        CHECK(summary(file.bytes()) == "1: a");
    }
    SUBCASE("with tabs that belong nowhere")
    {
        file.navigation(50, 0, "http://h/x").record(0, {77, 51}).record(24, {52, 0, 1});
        CHECK(summary(file.bytes()) == "1: a");
    }
}
