// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowTarget.h"

#include "tests/Printing.h"

#include <array>

using namespace ardeno;
using namespace ardeno::WindowLayout;

namespace {

const QList<QString> full = {"maximisedAcross", "maximisedDown"};

struct TargetFixture {
    WindowScene scene = {.displays = {{1, {0, 0, 1000, 800}}, {2, {1000, 0, 1000, 800}}}, .mainID = 1};
    SavedWindow saved;
    MovableWindow live = {.windowID = 7, .frame = {50, 50, 300, 200}, .states = QList<QString>()};

    TargetFixture()
    {
        saved.frame = {1100, 100, 500, 400};
        saved.displayID = 2;
        saved.displayFrame = {1000, 0, 1000, 800};
        saved.states = QList<QString>();
    }

    WindowTarget target(bool isNew = true) const { return targetOf(saved, live, isNew, scene); }
};

} // namespace

TEST_CASE_FIXTURE(TargetFixture, "a window that fills a display gets there first, with a size to come back to")
{
    saved.states = full;
    saved.frame = {1000, 0, 1000, 800};
    const WindowTarget sent = target();
    CHECK(sent.move->frame == WindowRect{1125, 100, 750, 600});
    CHECK(sent.move->states == full);

    live.frame = {1200, 100, 300, 200};
    CHECK_MESSAGE(target().move->frame == live.frame, "it keeps its own on the right display");
    live.states = QList<QString>{"maximisedDown", "maximisedAcross"};
    CHECK(target().isReached);
    live.frame = {0, 0, 1000, 800};
    CHECK_FALSE_MESSAGE(target().isReached, "it fills the wrong display");
}

TEST_CASE_FIXTURE(TargetFixture, "half maximised windows have a place, too")
{
    saved.states = {"maximisedDown"};
    CHECK(target().move->frame == saved.frame);
    live.frame = saved.frame;
    CHECK_FALSE(target().isReached);
    live.states = QList<QString>{"maximisedDown"};
    CHECK(target().isReached);
}

TEST_CASE_FIXTURE(TargetFixture, "a virtual desktop is found by its name, else by its number, or it is gone")
{
    struct Case {
        const char *what;
        QList<QString> today;
        qint64 number;
        std::optional<QString> name;
        std::optional<quint32> sentTo;
        bool isGone;
    };

    const std::array cases = {
        Case{"moved", {"Mail", "Work", "Play"}, 0, "Play", 2, false},
        Case{"called differently", {"One", "Two"}, 1, "Mail", 1, false},
        Case{"two of one name", {"Mail", "Mail", "Mail"}, 2, "Mail", 2, false},
        Case{"never had a name", {"", ""}, 1, std::nullopt, 1, false},
        Case{"where it is", {"Work", "Mail"}, 0, "Work", std::nullopt, false},
        Case{"fewer today", {"One", "Two"}, 3, "Mail", std::nullopt, true},
        Case{"a number of a damaged library", {"One", "Two"}, -5, std::nullopt, std::nullopt, true},
    };
    live.desktop = 0;
    for (const Case &each : cases) {
        CAPTURE(each.what);
        scene.desktops = each.today;
        saved.desktop = each.number;
        saved.desktopName = each.name;
        CHECK(target().move->desktop == each.sentTo);
        CHECK(target().isDesktopGone == each.isGone);
    }
    live.desktop.reset(); // On all desktops; a window that was there stays so.
    live.states = QList<QString>{"onAllDesktops"};
    scene.desktops = {"One", "Two"};
    saved.desktop = 1;
    CHECK_FALSE(target(false).move->desktop.has_value());
}

TEST_CASE_FIXTURE(TargetFixture, "without anything known of how it stood only the place counts")
{
    saved.states.reset();
    live.states = QList<QString>{"above"};
    CHECK_FALSE(target().move->states.has_value());
    live.frame = saved.frame;
    CHECK(target().isReached);
    saved.frame.width = 0;
    CHECK_FALSE(target().move.has_value());
}
