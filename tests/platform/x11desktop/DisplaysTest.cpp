// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Displays.h"

#include "tests/platform/x11desktop/SessionFixture.h"

#include <QRegularExpression>

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;
using desktop_test::TestWindow;

namespace {

// Two monitors side by side for as long as the test needs them.
struct TwoMonitorsFixture : SessionFixture {
    TwoMonitorsFixture()
    {
        outputOf("xrandr", {"--setmonitor", "LEFT", "1000/250x1080/270+0+0", "screen"});
        outputOf("xrandr", {"--setmonitor", "RIGHT", "920/230x1080/270+1000+0", "none"});
    }

    ~TwoMonitorsFixture()
    {
        outputOf("xrandr", {"--delmonitor", "RIGHT"});
        outputOf("xrandr", {"--delmonitor", "LEFT"});
    }

    WindowRect usable(qsizetype index) { return server.displays().at(index).usableFrame; }
};

// What "xrandr --listmonitors" prints of a display: " 0: +*DP-1 1920/508x1080/286+0+0".
struct Listed {
    QString name;
    WindowRect bounds;
};

QList<Listed> listedMonitors()
{
    static const QRegularExpression line(R"(^\s*\d+: [+*]*(\S+) (\d+)/\d+x(\d+)/\d+\+(\d+)\+(\d+))",
                                         QRegularExpression::MultilineOption);
    QList<Listed> monitors;
    auto matches = line.globalMatch(outputOf("xrandr", {"--listmonitors"}));
    while (matches.hasNext()) {
        const auto match = matches.next();
        const auto number = [&](int group) { return match.captured(group).toDouble(); };
        monitors.append({match.captured(1), {number(4), number(5), number(2), number(3)}});
    }
    return monitors;
}

} // namespace

TEST_CASE_FIXTURE(TwoMonitorsFixture, "displays are the monitors of the server, exactly one of them the main one")
{
    const QList<Display> displays = server.displays();
    const QList<Listed> listed = listedMonitors();
    REQUIRE(listed.size() == 2);
    REQUIRE(displays.size() == listed.size());
    for (qsizetype i = 0; i < displays.size(); ++i) {
        CHECK(displays[i].name == listed[i].name);
        CHECK(displays[i].bounds == listed[i].bounds);
        CHECK(displays[i].usableFrame == displays[i].bounds);
    }
    CHECK(displays[0].id != displays[1].id);
    CHECK(displays[0].isMain);
    CHECK_FALSE(displays[1].isMain);

    CHECK_MESSAGE(X11WindowServer(std::make_shared<X11Connection>(), entries).displays() == displays,
                  "another connection finds the same identifiers");
}

TEST_CASE_FIXTURE(TwoMonitorsFixture, "docks take from the monitor that they stand on while they are there")
{
    REQUIRE(usable(0) == WindowRect{0, 0, 1000, 1080});
    {
        TestWindow panel({0, 0, 1000, 40});
        panel.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        panel.setCardinals("_NET_WM_STRUT_PARTIAL", {0, 0, 40, 0, 0, 0, 0, 0, 0, 999, 0, 0});
        panel.show();
        TestWindow dock({1000, 0, 60, 1080});
        dock.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
        dock.setCardinals("_NET_WM_STRUT_PARTIAL", {1060, 0, 0, 0, 0, 1079, 0, 0, 0, 0, 0, 0});
        dock.show();
        CHECK(usable(0) == WindowRect{0, 40, 1000, 1040});
        CHECK(usable(1) == WindowRect{1060, 0, 860, 1080});
        CHECK_FALSE(onScreen(panel.id())->isNormalLayer);
    }
    CHECK(eventually([&] { return usable(0) == WindowRect{0, 0, 1000, 1080}; }));

    TestWindow old({0, 1050, 1920, 30});
    old.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    old.setCardinals("_NET_WM_STRUT", {0, 0, 0, 30});
    old.show();
    CHECK(usable(0) == WindowRect{0, 0, 1000, 1050});
    CHECK(usable(1) == WindowRect{1000, 0, 920, 1050});
}

TEST_CASE("a server that knows no monitors has its screen as the one display")
{
    desktop_test::BareServer server({"-extension", "RANDR"});
    const X11Connection connection(server.name());
    const WindowRect screen{0, 0, 640, 480};
    const QList<Display> displays = readDisplays(connection);
    REQUIRE(displays.size() == 1);
    CHECK(displays[0].bounds == screen);
    CHECK(displays[0].usableFrame == screen);
    CHECK(displays[0].isMain);

    server.end();
    CHECK_MESSAGE(readDisplays(connection).isEmpty(), "a connection that was lost has no displays");
    CHECK_FALSE(connection.availability().isAvailable());
}
