// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Struts.h"

#include <doctest/doctest.h>

using namespace ardeno;

TEST_CASE("a panel takes its strip from the monitor that it stands on and from no other")
{
    using Edge = X11Strut::Edge;
    // Two monitors of different heights, side by side, in a screen of 1800 × 1000 points.
    const WindowRect left{0, 0, 1000, 800};
    const WindowRect right{1000, 0, 800, 1000};

    struct Case {
        const char *what;
        X11Strut strut;
        WindowRect left;
        WindowRect right;
    };

    const QList<Case> cases = {
        {"along the top of the left one", {Edge::Top, {0, 0, 1000, 30}}, {0, 30, 1000, 770}, right},
        {"along the whole top", {Edge::Top, {0, 0, 1800, 30}}, {0, 30, 1000, 770}, {1000, 30, 800, 970}},
        {"at the outer left", {Edge::Left, {0, 0, 40, 800}}, {40, 0, 960, 800}, right},
        {"at the left of the right one", {Edge::Left, {0, 0, 1050, 1000}}, left, {1050, 0, 750, 1000}},
        {"at the right of the left one", {Edge::Right, {950, 0, 850, 800}}, {0, 0, 950, 800}, right},
        {"below the shorter one", {Edge::Bottom, {0, 760, 1000, 240}}, {0, 0, 1000, 760}, right},
        {"below the taller one", {Edge::Bottom, {1000, 960, 800, 40}}, left, {1000, 0, 800, 960}},
        {"as high as the monitor", {Edge::Top, {0, 0, 1000, 800}}, left, right},
        {"of no length", {Edge::Top, {500, 0, 0, 30}}, {0, 30, 1000, 770}, right},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString(tried.what));
        CHECK(usableFrame(left, {tried.strut}) == tried.left);
        CHECK(usableFrame(right, {tried.strut}) == tried.right);
    }
}

TEST_CASE("strips add up, and those that would leave nothing are ignored")
{
    using Edge = X11Strut::Edge;
    const WindowRect monitor{0, 0, 1000, 800};
    const X11Strut top{Edge::Top, {0, 0, 1000, 30}};
    const X11Strut higher{Edge::Top, {0, 0, 500, 50}};
    const X11Strut bottom{Edge::Bottom, {0, 700, 1000, 100}};
    CHECK(usableFrame(monitor, {top, bottom, higher}) == WindowRect{0, 50, 1000, 650});

    const X11Strut half{Edge::Left, {0, 0, 600, 800}};
    const X11Strut otherHalf{Edge::Right, {500, 0, 500, 800}};
    CHECK(usableFrame(monitor, {half, otherHalf}) == monitor);
}
