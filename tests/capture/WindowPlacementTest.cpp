// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowPlacement.h"

#include "tests/Printing.h"

#include <array>
#include <cmath>
#include <limits>

using namespace ardeno;

namespace doctest {

template <>
struct StringMaker<std::optional<WindowRect>> {
    static String convert(const std::optional<WindowRect> &rect)
    {
        if (!rect)
            return "nothing";
        return u"%1, %2, %3 × %4"_qs.arg(rect->x).arg(rect->y).arg(rect->width).arg(rect->height).toUtf8().constData();
    }
};

} // namespace doctest

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
const WindowRect left = {0, 0, 1920, 1080};
const WindowRect right = {1920, 40, 1280, 984}; // Below a panel of 40 points.
const QList<WindowLayout::DisplayEntry> both = {{1, left}, {2, right}};

SavedWindow saved(const WindowRect &frame, quint32 displayID = 1, const WindowRect &displayFrame = left)
{
    SavedWindow window;
    window.frame = frame;
    window.displayID = displayID;
    window.displayFrame = displayFrame;
    return window;
}

} // namespace

TEST_CASE("a saved frame goes to the same place of its display, or to the main one, and stays inside")
{
    struct Case {
        const char *name;
        SavedWindow window;
        std::optional<WindowRect> expected;
    };

    const std::array cases = {
        Case{"unchanged", saved({100, 200, 800, 600}), WindowRect{100, 200, 800, 600}},
        Case{"fractions are kept", saved({100.25, 0.5, 800.75, 600}), WindowRect{100.25, 0.5, 800.75, 600}},
        Case{"small windows grow", saved({10, 10, 100, 50}), WindowRect{10, 10, 120, 80}},
        Case{"outside", saved({-500, 2000, 800, 600}), WindowRect{0, 480, 800, 600}},
        Case{"wider than the display", saved({300, 100, 5000, 600}), WindowRect{0, 100, 1920, 600}},
        Case{"display gone, main takes over", saved({3840, 540, 960, 540}, 9, {2880, 0, 1920, 1080}),
             WindowRect{960, 540, 960, 540}},
        Case{"same display, other resolution", saved({1280, 720, 400, 300}, 1, {0, 0, 2560, 1440}),
             WindowRect{960, 540, 400, 300}},
        Case{"same display, elsewhere now", saved({0, 0, 640, 400}, 2, {0, 0, 1280, 984}),
             WindowRect{1920, 40, 640, 400}},
        Case{"no display at capture", saved({5, 6, 640, 400}, 1, {}), WindowRect{1280, 680, 640, 400}},
        Case{"huge", saved({largest, -largest, largest, largest}), WindowRect{0, 0, 1920, 1080}},
        Case{"huge and mapped", saved({largest, -largest, 300, 200}, 7, {-largest, largest, largest, 1}),
             WindowRect{1620, 0, 300, 200}},
        Case{"no width", saved({0, 0, 0, 100}), std::nullopt},
        Case{"negative height", saved({0, 0, 100, -1}), std::nullopt},
        Case{"not a number", saved({std::nan(""), 0, 100, 100}), std::nullopt},
        Case{"infinite", saved({0, infinity, 100, 100}), std::nullopt},
        Case{"infinite width", saved({0, 0, infinity, 100}), std::nullopt},
        Case{"display of no numbers", saved({10, 10, 300, 200}, 1, {std::nan(""), infinity, infinity, 1}),
             WindowRect{0, 0, 300, 200}},
    };
    for (const Case &each : cases) {
        CAPTURE(each.name);
        CHECK(WindowPlacement::fit(each.window, both, 1) == each.expected);
    }
}

TEST_CASE("the display is the saved one, else the main one, else the first")
{
    const SavedWindow window = saved({0, 0, 300, 200}, 7);
    CHECK(WindowPlacement::fit(window, both, 2) == WindowRect{1920, 40, 300, 200});
    CHECK(WindowPlacement::fit(window, both, 8) == WindowRect{0, 0, 300, 200});
    CHECK_FALSE(WindowPlacement::fit(window, {}, 1).has_value());
    const QList<WindowLayout::DisplayEntry> tiny = {{1, {0, 0, 100, 60}}};
    CHECK(WindowPlacement::fit(window, tiny, 1) == WindowRect{0, 0, 100, 60});
}

TEST_CASE("a window that stands where it was saved is in its place, even where no window would be put")
{
    const SavedWindow half = saved({-200, 100, 80, 60}); // Half off its display, and smaller than is usual.
    CHECK(WindowPlacement::isInPlace({-200.6, 100, 80, 60.6}, half, both, 1));
    CHECK(WindowPlacement::isInPlace(*WindowPlacement::fit(half, both, 1), half, both, 1));
    CHECK_FALSE(WindowPlacement::isInPlace({-198, 100, 80, 60}, half, both, 1));
    CHECK_FALSE_MESSAGE(WindowPlacement::isInPlace(half.frame, half, {{2, right}}, 2), "its display has gone");
}
