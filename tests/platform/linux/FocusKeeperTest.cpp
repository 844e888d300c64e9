// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/FocusKeeper.h"

#include "support/BlockOn.h"

#include <QTest>

#include <doctest/doctest.h>

using namespace ardeno;

namespace {

constexpr quint32 own = 1;
constexpr quint32 new1 = 2;
constexpr quint32 browser = 3;

// A session whose window manager is as slow as a test wants.
struct ScriptedSession {
    quint32 active = own;
    QList<LiveWindow> windows = {{.applicationID = "terminal", .windowID = own}};
    int deafness = 0; // Requests that it does not get to.
    int looks = 0;
    bool isSwitching = false; // The user holds a key down.
    FocusKeeper keeper{{.liveWindows =
                            [this] {
                                ++looks;
                                return windows;
                            },
                        .activeWindow = [this] { return active; },
                        .activate = [this](quint32 window) { active = deafness-- > 0 ? active : window; },
                        .isUserSwitching = [this] { return isSwitching; }}};

    void waitForLook()
    {
        REQUIRE(QTest::qWaitFor([this, before = looks] { return looks > before + 1; }));
    }

    void appear(quint32 window, const QString &appID)
    {
        windows.append({.applicationID = appID, .windowID = window});
        active = window;
    }
};

} // namespace

TEST_CASE_FIXTURE(ScriptedSession, "what was started loses the focus to the user's window, however busy the manager is")
{
    keeper.expect("editor");
    SUBCASE("at once") {}
    SUBCASE("after it was asked several times")
    {
        deafness = 3;
    }
    appear(new1, "editor");
    blockOn(keeper.settle());
    CHECK(active == own);
}

TEST_CASE_FIXTURE(ScriptedSession, "the user may go to what was started, and elsewhere")
{
    keeper.expect("editor");
    SUBCASE("to it, after it lost the focus")
    {
        appear(new1, "editor");
        REQUIRE(QTest::qWaitFor([&] { return active == own; }));
        isSwitching = true;
        waitForLook();
        isSwitching = false;
        active = new1;
        blockOn(keeper.settle());
        CHECK(active == new1);
    }
    SUBCASE("to another window, where the focus then stays")
    {
        windows.append({.applicationID = "browser", .windowID = browser});
        active = browser;
        waitForLook();
        appear(new1, "editor");
        blockOn(keeper.settle());
        CHECK(active == browser);
    }
}

TEST_CASE_FIXTURE(ScriptedSession,
                  "what nobody asked for takes the focus no second time, and shows itself under any name")
{
    keeper.expect("editor");
    quint32 expected = own;
    SUBCASE("a window that takes it again and again, later than it is watched after the first time")
    {
        appear(new1, "editor");
        QTimer::singleShot(800, [&] { active = new1; });
        QTimer::singleShot(1600, [&] { active = new1; });
    }
    SUBCASE("a picture that is shown while it starts")
    {
        appear(4, "window-class/soffice");
        REQUIRE(QTest::qWaitFor([&] { return active == own; }));
        appear(new1, "editor");
    }
    SUBCASE("a window of another part of what was started")
    {
        windows.append({.processID = 7, .applicationID = "editor", .windowID = new1});
        windows.append({.processID = 7, .applicationID = "spreadsheet", .windowID = 4});
        active = 4;
    }
    SUBCASE("the user's own window is closed")
    {
        appear(new1, "editor");
        windows.removeFirst();
        expected = new1;
    }
    blockOn(keeper.settle());
    CHECK(active == expected);
}

TEST_CASE_FIXTURE(ScriptedSession, "an application that runs may take the focus as long as something hands over to it")
{
    windows.append({.applicationID = "browser", .windowID = browser});
    bool isAtWork = true;
    keeper.expect("browser");
    keeper.setStarter("browser", [&] { return isAtWork; });
    QTimer::singleShot(1500, [&] {
        active = browser;
        isAtWork = false;
    });
    blockOn(keeper.settle());
    CHECK(active == own);
    CHECK_FALSE(isAtWork);
}

TEST_CASE_FIXTURE(ScriptedSession, "an application is starting until it shows a window, hands over or fails")
{
    bool isAtWork = true;
    keeper.expect("editor");
    keeper.setStarter("editor", [&] { return isAtWork; });
    waitForLook();
    CHECK(keeper.isStarting("editor"));
    CHECK_FALSE(keeper.isStarting("terminal"));
    SUBCASE("it shows one")
    {
        appear(new1, "editor");
    }
    SUBCASE("it hands over")
    {
        keeper.expect("terminal");
        keeper.setStarter("terminal", [&] { return isAtWork; });
        waitForLook();
        CHECK(keeper.isStarting("terminal"));
        isAtWork = false;
        keeper.cancel("editor");
    }
    SUBCASE("it fails")
    {
        keeper.cancel("editor");
    }
    waitForLook();
    CHECK_FALSE(keeper.isStarting("editor"));
    CHECK_FALSE(keeper.isStarting("terminal"));
}

TEST_CASE_FIXTURE(ScriptedSession, "a window that is lent the focus has it until it gives it back")
{
    windows.append({.applicationID = "browser", .windowID = browser});
    keeper.expect("browser");
    CHECK(blockOn(keeper.lend(browser)));
    CHECK_FALSE(QTest::qWaitFor([&] { return active != browser; }, 200));
    keeper.resume();
    blockOn(keeper.settle());
    CHECK(active == own);
}
