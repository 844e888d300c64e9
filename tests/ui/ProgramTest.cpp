// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"
#include "tests/ui/RunningWindow.h"

#include <QColor>
#include <QImage>

using namespace ardeno;

TEST_CASE_FIXTURE(RunningWindow, "the window is there before the library can be read, and shows it afterwards")
{
    {
        const LibraryLock lock = LibraryLock::waitFor({root()}, std::chrono::milliseconds(0));
        open();
        picture("before-the-library");
        key("ctrl+q");
        CHECK(end(*program).status == 0);
        open();
    }
    createProject("Garden");
}

TEST_CASE_FIXTURE(RunningWindow, "without a session bus there is a window, which works and quits when it is closed")
{
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + home.filePath("no-bus"));
    CHECK(run({"--background"}).status == 3);
    open();
    createProject("Thesis");
    picture("no-session-bus");
    desktop_test::outputOf("wmctrl", {"-i", "-c", window});
    CHECK(end(*program).status == 0);
}

TEST_CASE_FIXTURE(RunningWindow, "at another scale all is drawn larger, and a click acts on what is seen")
{
    environment.insert("QT_SCALE_FACTOR", "1.5");
    open();
    createProject("Thesis");
    REQUIRE(sees("Save first checkpoint"));
    // Readers are told places as the program counts them.
    const QRect counted = reader->find("Ardeno").value_or(ScreenReader::Control()).extents;
    const QRect drawn = geometry(window);
    const double scale = double(drawn.width()) / counted.width();
    CHECK(scale == doctest::Approx(1.5).epsilon(0.01));
    const auto seenPlace = [&](const QString &name) {
        const QPointF within = place(name).center() - counted.topLeft();
        return (within * scale).toPoint();
    };
    picture("scaled");
    const QString file = home.filePath("shown.png");
    outputOf("maim", {"-i", window, file});
    const QPoint save = seenPlace("Save first checkpoint");
    const QRect text = place("Save first checkpoint");
    const QPoint edge = save - QPoint(int(text.width() * scale / 2) - 9, 0); // Beside its text.
    CHECK(QImage(file).pixelColor(edge) == QColor(82, 99, 158));
    const QPoint blocked = drawn.topLeft() + seenPlace("Mark blocked…");
    outputOf("xdotool", {"mousemove", QString::number(blocked.x()), QString::number(blocked.y()), "click", "1"});
    CHECK(sees("Waiting for…"));
    close();
}

TEST_CASE_FIXTURE(ProgramFixture, "without a display the program says so")
{
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    const ProgramResult result = run({});
    CHECK(result.status == 3);
    CHECK(result.out.isEmpty());
    CHECK(result.error.contains("There is no display"));
}
