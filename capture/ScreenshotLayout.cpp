// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/ScreenshotLayout.h"

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr double widestDisplay = 1920;
constexpr double longestSide = 8192;

WindowRect united(const QList<WindowRect> &frames)
{
    WindowRect all = frames.first();
    for (const WindowRect &frame : frames) {
        const double maxX = std::max(all.maxX(), frame.maxX());
        const double maxY = std::max(all.maxY(), frame.maxY());
        all.x = std::min(all.x, frame.x);
        all.y = std::min(all.y, frame.y);
        all.width = maxX - all.x;
        all.height = maxY - all.y;
    }
    return all;
}

// 2094 × (1920 ÷ 2094) is a trifle more than 1920 in doubles; that must not cost a column without a picture.
double wholePixels(double length)
{
    constexpr double rounding = 1e-6;
    return std::ceil(length - rounding);
}

} // namespace

ScreenshotLayout screenshotLayout(const QList<WindowRect> &frames)
{
    if (frames.isEmpty())
        return {};
    const WindowRect all = united(frames);
    if (!(all.width > 0 && all.height > 0))
        return {};

    double widest = 0;
    for (const WindowRect &frame : frames)
        widest = std::max(widest, frame.width);
    const double forWidth = widest > 1 ? widestDisplay / widest : widestDisplay;
    const double forCanvas = longestSide / std::max(all.width, all.height);

    ScreenshotLayout layout;
    layout.scale = std::min({forWidth, 1.0, forCanvas});
    layout.width = wholePixels(all.width * layout.scale);
    layout.height = wholePixels(all.height * layout.scale);
    for (const WindowRect &frame : frames) {
        layout.placements.append({(frame.x - all.x) * layout.scale, (all.maxY() - frame.maxY()) * layout.scale,
                                  frame.width * layout.scale, frame.height * layout.scale});
    }
    return layout;
}

} // namespace ardeno
