// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11screen/ScreenFixture.h"

#include "tests/Printing.h"

#include <utility>

using namespace ardeno;
using namespace ardeno::screen_test;

// On a screen of 3840 by 2160.
TEST_SUITE("wide")
{
    TEST_CASE_FIXTURE(ScreenFixture, "a wide display is halved, and its edges stay sharp")
    {
        const Painter open({"class=open", "colour=00c000", "geometry=1000,600,2000,1000", "kind=popup"});
        const Painter secret({"class=secret", "colour=ff00ff", "geometry=1500,900,500,300", "kind=popup"});

        const QImage image = picture({secretID});

        REQUIRE(image.size() == QSize(1920, 1080));
        CHECK(countOf(image, secretColour) == 0);
        CHECK(image.pixel(500, 300) == openColour);
        CHECK(image.pixel(1499, 799) == openColour);
        CHECK(image.pixel(499, 300) != openColour);
        CHECK(image.pixel(1500, 799) != openColour);
        CHECK(countOf(image, openColour) == 1000 * 500);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "no edge is grey where the size is not a whole number of pixels")
    {
        setMonitors({{"ONLY", "3024/700x1964/400+0+0"}});
        const Painter all({"class=open", "colour=00c000", "geometry=0,0,3840,2160", "kind=popup"});

        const QImage image = picture();

        REQUIRE(image.size() == QSize(1920, 1247));
        CHECK(countOf(image.copy(0, 0, 1900, 1247), openColour) == 1900 * 1247);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "displays that touch have no seam, those far from the widest are halved more")
    {
        // Scales of 0.5 and below: 3840 points in the wide one would be 1920; the canvas is not the limit here.
        setMonitors({{"WIDE", "2561/600x1001/300+0+0"},
                     {"NEXT", "1279/300x1001/300+2561+0"},
                     {"BELOW", "3840/900x1159/300+0+1001"}});
        const Painter all({"class=open", "colour=00c000", "geometry=0,0,3840,2160", "kind=popup"});

        const QImage image = picture();

        REQUIRE(image.size() == QSize(1920, 1080));
        CHECK(countOf(image.copy(0, 0, 1900, 1060), openColour) == 1900 * 1060);
    }
}
