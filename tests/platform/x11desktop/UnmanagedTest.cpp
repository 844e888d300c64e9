// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11desktop/SessionFixture.h"

using namespace ardeno;
using desktop_test::Application;
using desktop_test::TestWindow;

TEST_SUITE_BEGIN("unmanaged");

TEST_CASE_FIXTURE(SessionFixture, "without a window manager the windows that are mapped and no popups count")
{
    TestWindow popup({0, 0, 200, 100}, TestWindow::Kind::Popup);
    popup.show();
    TestWindow back({100, 100, 300, 200});
    back.setTitle("back");
    back.show();
    Application terminal("xterm", {"-title", "front", "-geometry", "80x24+50+60", "-bw", "3"});
    const quint32 front = terminal.waitForWindow("front");
    REQUIRE(front != 0);
    TestWindow hidden;
    hidden.show();
    hidden.hide();

    const QList<WindowInfo> windows = server.windows();
    REQUIRE(windows.size() == 2);
    CHECK(windows[0].windowID == front);
    CHECK(windows[0].applicationID == "debian-xterm");
    CHECK(windows[0].processID == terminal.processID());
    CHECK(windows[0].isNormalLayer);
    CHECK_MESSAGE(windows[0].frame == rectangle(front), "with the border of the window");
    CHECK(windows[1].title == "back");
    CHECK(windows[1].frame == WindowRect{100, 100, 300, 200});
    CHECK(running("debian-xterm")->isRegular);
}

TEST_CASE_FIXTURE(SessionFixture, "the lists of a window manager that has ended are not believed")
{
    {
        TestWindow window;
        window.show();
        Application manager("openbox");
        REQUIRE(desktop_test::eventually([&] { return topLevel(window.id()) != window.id(); }));
        REQUIRE(desktop_test::eventually([&] { return onScreen(window.id()).has_value(); }));
        desktop_test::outputOf("kill", {"-KILL", QString::number(manager.processID())});
    }
    REQUIRE(desktop_test::outputOf("xprop", {"-root", "_NET_CLIENT_LIST_STACKING"}).contains("0x"));
    CHECK(server.windows().isEmpty());
    Application terminal("xterm", {"-title", "alone"});
    const quint32 window = terminal.waitForWindow("alone");
    CHECK(server.windows().size() == 1);
    CHECK(onScreen(window).has_value());
}

TEST_SUITE_END();
