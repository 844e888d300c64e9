// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowMover.h"

#include "platform/linux/x11/windows/X11Placement.h"
#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/TestWindow.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <memory>

using namespace ardeno;
using namespace ardeno::desktop_test;

namespace {

struct MoverFixture {
    std::shared_ptr<X11Connection> connection = std::make_shared<X11Connection>();
    X11WindowMover mover{connection, std::make_shared<DesktopEntries>()};

    std::optional<MovableWindow> window(const QString &title)
    {
        for (const MovableWindow &window : mover.windows()) {
            if (window.title.contains(title))
                return window;
        }
        return std::nullopt;
    }

    MoveResult move(const QString &title, const WindowRect &frame)
    {
        const auto found = window(title);
        REQUIRE(found.has_value());
        const QList<WindowMove> moves = {{found->windowID, frame}};
        return blockOn(mover.move(moves)).value(0);
    }

    // The largest difference from where the window should be, in pixels.
    double error(const QString &title, const WindowRect &frame)
    {
        const WindowRect is = window(title).value_or(MovableWindow()).frame;
        return std::max({std::abs(is.x - frame.x), std::abs(is.y - frame.y), std::abs(is.width - frame.width),
                         std::abs(is.height - frame.height)});
    }
};

} // namespace

TEST_CASE_FIXTURE(MoverFixture, "applications stand within a pixel of where they are sent, again and again")
{
    CHECK(mover.availability().isAvailable());
    const QString folder = QDir::tempPath() + "/sent";
    QDir().mkpath(folder);
    writeFile(QDir::tempPath() + "/notes.txt"); // No title shall contain another.
    Application editor("mousepad", {QDir::tempPath() + "/notes.txt"});
    Application files("thunar", {folder});
    Application viewer("okular"); // Answers in the way of its toolkit.
    TestWindow plain;
    plain.setTitle("plain window");
    plain.show();
    for (const char *title : {"notes.txt", "sent", "Okular", "plain window"})
        REQUIRE(eventually([&] { return window(title).has_value(); }));

    for (const WindowRect &frame : {WindowRect{300, 200, 700, 500}, WindowRect{0, 0, 640, 480},
                                    WindowRect{1100, 520, 820, 560}, WindowRect{37.4, 41.6, 903.2, 655.5}}) {
        for (const QString title : {"notes.txt", "sent", "Okular", "plain window"}) {
            CAPTURE(title);
            CHECK(move(title, frame) == MoveResult::Placed);
            CHECK(error(title, frame) <= 1);
        }
    }
}

TEST_CASE_FIXTURE(MoverFixture, "a terminal stands within one of its cells, and exactly where it once was")
{
    Application terminal("xterm", {"-T", "cells", "-e", "sleep 300"});
    REQUIRE(terminal.waitForWindow("cells") != 0);
    REQUIRE(eventually([&] { return window("cells").has_value(); }));
    CHECK(move("cells", {300, 200, 700, 500}) == MoveResult::Placed);
    CHECK(error("cells", {300, 200, 700, 500}) <= 13);
    const WindowRect once = window("cells")->frame;
    CHECK(move("cells", {10, 10, 400, 300}) == MoveResult::Placed);
    CHECK(move("cells", once) == MoveResult::Placed);
    CHECK(error("cells", once) <= 1);
}

TEST_CASE_FIXTURE(MoverFixture, "what must not be moved is told apart")
{
    struct Case {
        const char *title;
        QStringList how; // A command; the number of the window is added.
        bool MovableWindow::*flag;
    };

    const std::array cases = {
        Case{"a maximised one",
             {"wmctrl", "-b", "add,maximized_vert,maximized_horz", "-ir"},
             &MovableWindow::isMaximised},
        Case{"a half maximised one", {"wmctrl", "-b", "add,maximized_vert", "-ir"}, &MovableWindow::isMaximised},
        Case{"a full one", {"wmctrl", "-b", "add,fullscreen", "-ir"}, &MovableWindow::isFullScreen},
        Case{"a hidden one", {"xdotool", "windowminimize"}, &MovableWindow::isMinimised},
    };
    for (const Case &each : cases) {
        const QString title = each.title;
        CAPTURE(title);
        TestWindow test;
        test.setTitle(each.title);
        test.show();
        CHECK_FALSE((*window(title)).*each.flag);
        outputOf(each.how.first(), each.how.mid(1) + QStringList{QString::number(window(title)->windowID)});
        CHECK(eventually([&] { return (*window(title)).*each.flag; }));
    }
}

TEST_CASE_FIXTURE(MoverFixture,
                  "windows stand as they are asked to, on the desktop they are asked to, and nobody follows")
{
    outputOf("wmctrl", {"-n", "2"});
    TestWindow test;
    test.setTitle("states");
    test.show();
    REQUIRE(eventually([&] { return window("states").has_value(); }));
    const auto ask = [&](const QList<QString> &states, quint32 desktop) {
        WindowMove move{window("states")->windowID, {200, 150, 500, 400}, desktop};
        move.states = states;
        const QList<WindowMove> moves = {move};
        return blockOn(mover.move(moves)).value(0);
    };
    for (const QList<QString> &states :
         {QList<QString>{"maximisedAcross", "maximisedDown"}, QList<QString>{"fullScreen"}, QList<QString>{"above"},
          QList<QString>{"maximisedDown"}, QList<QString>{}}) {
        CAPTURE(states);
        CHECK(ask(states, 1) == MoveResult::Placed);
        CHECK(window("states")->states == states);
        CHECK(window("states")->desktop == 1);
    }
    CHECK(error("states", {200, 150, 500, 400}) <= 1);
    CHECK(ask({"onAllDesktops"}, 0) == MoveResult::Placed);
    CHECK_FALSE(window("states")->desktop.has_value());
    CHECK(ask({"minimised"}, 0) == MoveResult::Placed);
    const auto isThere = [&] { return error("states", {200, 150, 500, 400}) <= 1; };
    CHECK(eventually(isThere)); // Some window managers let it fly away first.
    CHECK(ask({"minimised"}, 1) == MoveResult::Placed);
    CHECK(window("states")->desktop == 1);
    CHECK(window("states")->isMinimised);
    CHECK(eventually(isThere));
    CHECK(outputOf("xprop", {"-root", "_NET_CURRENT_DESKTOP"}).contains("= 0"));
    outputOf("wmctrl", {"-n", "1"});
}

TEST_CASE_FIXTURE(MoverFixture, "an application that hangs is only found out when its window does not go")
{
    writeFile(QDir::tempPath() + "/hangs.txt");
    Application editor("mousepad", {"--disable-server", QDir::tempPath() + "/hangs.txt"});
    REQUIRE(eventually([&] { return window("hangs.txt").has_value(); }));
    TestWindow plain;
    plain.setTitle("lively");
    plain.show();
    const auto isFull = [&] { return window("hangs.txt")->isFullScreen; };
    SUBCASE("window managers move its window without it") {}
    SUBCASE("they hold on to it")
    {
        outputOf("wmctrl", {"-r", "hangs.txt", "-b", "add,fullscreen"});
        REQUIRE(eventually(isFull));
    }
    REQUIRE(::kill(static_cast<pid_t>(editor.processID()), SIGSTOP) == 0);

    const WindowRect frame = {200, 150, 600, 400};
    const QList<WindowMove> moves = {{window("hangs.txt")->windowID, frame}, {window("lively")->windowID, frame}};
    const QList<MoveResult> results = blockOn(mover.move(moves));

    ::kill(static_cast<pid_t>(editor.processID()), SIGCONT);
    CHECK(results == QList<MoveResult>{isFull() ? MoveResult::NotAnswering : MoveResult::Placed, MoveResult::Placed});
}

TEST_CASE_FIXTURE(MoverFixture, "a window that has gone is refused")
{
    const QList<WindowMove> moves = {{0x7FFFFFF, {0, 0, 100, 100}}};
    CHECK(blockOn(mover.move(moves)) == QList<MoveResult>{MoveResult::Refused});
}

TEST_CASE("the size of a client area is what is left of the frame and what the application allows")
{
    QList<quint32> hints(18, 0);
    hints[0] = (1 << 4) | (1 << 5) | (1 << 6);
    hints[5] = 200; // Smallest width and height.
    hints[6] = 100;
    hints[7] = 500; // Largest.
    hints[8] = quint32(-1);
    hints[9] = 10; // Steps.
    hints[10] = 0;
    const X11SizeHints read = X11SizeHints::fromProperty(hints);
    CHECK(read == X11SizeHints{.smallestWidth = 200, .smallestHeight = 100, .largestWidth = 500, .widthStep = 10});
    CHECK(X11SizeHints::fromProperty({}) == X11SizeHints());

    const X11Surroundings decoration = {4, 6, 20, 5};
    const X11Placement decorated({1, {100, 50, 310, 425}}, decoration, {}, read);
    CHECK(decorated.x() == 100);
    CHECK(decorated.width() == 300);
    CHECK(decorated.height() == 400);
    CHECK(decorated.isReached({100.6, 49.4, 302, 425}));
    CHECK_FALSE(decorated.isReached({102, 50, 310, 425}));
    CHECK(X11Placement({1, {0, 0, 5000, 10}}, decoration, {}, read).width() == 500);
    CHECK(X11Placement({1, {0, 0, 5000, 10}}, decoration, {}, read).height() == 100);

    // One that is as asked for stays so, whatever it allows.
    CHECK(X11Placement({1, {0, 0, 5000, 10}}, decoration, {}, read).isReached({0, 0, 5000, 10}));

    const X11Placement shadowed({1, {100, 50, 300, 400}}, {}, {26, 26, 23, 29}, {});
    CHECK(shadowed.x() == 74);
    CHECK(shadowed.y() == 27);
    CHECK(shadowed.width() == 352);
    CHECK(shadowed.height() == 452);
    const X11Placement huge({1, {1e300, -1e300, 1e300, 5}}, {}, {}, {});
    CHECK(huge.x() == 32767);
    CHECK(huge.width() == 65535);
}
