// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/InheritedPixels.h"

#include "tests/Printing.h"

using namespace ardeno;

namespace {

constexpr quint32 secret = 1;
constexpr quint32 open = 2;
constexpr quint32 third = 3;

int areaOf(const X11Region &region)
{
    int area = 0;
    for (const QRect &rectangle : region.rectangles())
        area += rectangle.width() * rectangle.height();
    return area;
}

// A window of somebody else, 100 by 100, and one that will lie half over it.
struct Fixture {
    Fixture()
    {
        pixels.add(secret, QRect(0, 0, 100, 100), true);
        pixels.add(open, QRect(50, 0, 100, 100), false);
        pixels.map(open);
    }

    int untrusted(quint32 window) const { return areaOf(pixels.untrusted(window, {open, third})); }

    InheritedPixels pixels = {};
};

} // namespace

TEST_CASE_FIXTURE(Fixture, "a new window may show what was at its place until it is drawn")
{
    CHECK(untrusted(open) == 50 * 100);
    pixels.draw(open, QRect(0, 0, 20, 100));
    CHECK(untrusted(open) == 30 * 100);
    pixels.draw(open, QRect(10, 0, 40, 100));
    CHECK(pixels.isClean(open));
    pixels.draw(open, QRect(0, 0, 100, 100));
    CHECK(pixels.isClean(open));
}

TEST_CASE_FIXTURE(Fixture, "what a window has inherited it hands on")
{
    pixels.unmap(secret);
    pixels.remove(secret);
    pixels.add(third, QRect(60, 10, 10, 10), false);
    pixels.map(third);

    // The first window has gone, and its number may be another one's.
    CHECK(areaOf(pixels.untrusted(third, {secret, open, third})) == 10 * 10);
}

TEST_CASE_FIXTURE(Fixture, "a new size is a new pixmap, a new place is not")
{
    pixels.draw(open, QRect(0, 0, 100, 100));
    pixels.place(open, QRect(20, 0, 100, 100));
    CHECK(pixels.isClean(open));
    pixels.place(open, QRect(20, 0, 120, 100));
    CHECK(untrusted(open) == 80 * 100);
}

TEST_CASE_FIXTURE(Fixture, "a window that comes where another has just been may still show it")
{
    pixels.place(secret, QRect(500, 500, 100, 100));
    pixels.add(third, QRect(0, 0, 30, 30), false);
    pixels.map(third);
    CHECK(untrusted(third) == 30 * 30);
}
