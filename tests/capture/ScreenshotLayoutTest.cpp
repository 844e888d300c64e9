// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/ScreenshotLayout.h"

#include "tests/Printing.h"

using namespace ardeno;

namespace {

struct Case {
    const char *name;
    QList<WindowRect> frames;
    double width;
    double height;
    QList<WindowRect> placements;
};

} // namespace

TEST_CASE("displays keep their arrangement on a canvas of bounded size")
{
    const double third = 1920.0 / 3024;
    const double ninth = 8192.0 / 17280;
    const Case cases[] = {
        {"nothing is enlarged", {{0, 0, 1366, 768}}, 1366, 768, {{0, 0, 1366, 768}}},
        {"a part of a pixel counts as one", {{0, 0, 3024, 1964}}, 1920, 1247, {{0, 0, 1920, 1964 * third}}},
        {"two side by side",
         {{0, 0, 2560, 1440}, {2560, 0, 2560, 1440}},
         3840,
         1080,
         {{0, 0, 1920, 1080}, {1920, 0, 1920, 1080}}},
        {"one above the main display",
         {{0, 0, 1920, 1080}, {100, -800, 1280, 800}},
         1920,
         1880,
         {{0, 0, 1920, 1080}, {100, 1080, 1280, 800}}},
        {"one below and left of it",
         {{0, 0, 800, 600}, {-400, 600, 400, 300}},
         1200,
         900,
         {{400, 300, 800, 600}, {0, 0, 400, 300}}},
        {"a display too narrow to count", {{0, 0, 0.5, 4096}}, 1, 4096, {{0, 0, 0.5, 4096}}},
        {"a tall one", {{0, 0, 1000, 16384}}, 500, 8192, {{0, 0, 500, 8192}}},
        {"no column more for an error of rounding", {{0, 0, 2094, 1000}}, 1920, 917, {}},
    };
    for (const Case &one : cases) {
        CAPTURE(one.name);
        const ScreenshotLayout layout = screenshotLayout(one.frames);
        CHECK(layout.width == one.width);
        CHECK(layout.height == one.height);
        if (!one.placements.isEmpty())
            CHECK(layout.placements == one.placements);
    }

    QList<WindowRect> row;
    for (int i = 0; i < 9; ++i)
        row.append({i * 1920.0, 0, 1920, 1080});
    const ScreenshotLayout layout = screenshotLayout(row);
    CHECK(layout.scale == ninth);
    CHECK(layout.width == 8192);
    CHECK(layout.height == 512);
    CHECK(layout.placements.last().maxX() == doctest::Approx(8192));
}

TEST_CASE("frames without an area make no canvas")
{
    CHECK(screenshotLayout({}) == ScreenshotLayout());
    CHECK(screenshotLayout({{5, 5, 0, 0}}) == ScreenshotLayout());
    CHECK(screenshotLayout({{0, 0, 0, 100}, {0, 50, 0, 100}}) == ScreenshotLayout());
}
