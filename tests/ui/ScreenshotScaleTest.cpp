// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScreenshotScale.h"
#include "tests/Printing.h"

using namespace ardeno;
using namespace ardeno::ScreenshotScale;

TEST_CASE("a screenshot fits into the window without being enlarged or vanishing")
{
    struct Case {
        QSize pixels;
        QSizeF content;
        double scale;
        int percent;
    };

    const QList<Case> cases = {
        {{6000, 2000}, {1180, 780}, 1132.0 / 6000, 18},
        {{2000, 6000}, {1180, 780}, 732.0 / 6000, 12},
        {{400, 300}, {1180, 780}, 1.0, 100},
        {{1132, 732}, {1180, 780}, 1.0, 100},
        {{30000, 200}, {680, 440}, 0.05, 5},
        {{1, 1}, {1180, 780}, 1.0, 100},
        {{0, 0}, {1180, 780}, 1.0, 100},
        {{1000, 1000}, {40, 40}, 0.05, 5}, // Less room than margins.
    };
    for (const Case &each : cases) {
        CAPTURE(each.pixels.width());
        CHECK(fit(each.content, each.pixels) == doctest::Approx(each.scale));
        CHECK(percent(inUse(fitting, 1, each.content, each.pixels)) == each.percent);
    }
}
