// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/RecordingLayout.h"

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

constexpr double widestFrame = 1920;

int even(double length)
{
    return int(length) & ~1;
}

// Whether the frame shows the display pixel by pixel, but for a last column or row that would make it odd.
bool isPixelByPixel(const WindowRect &display, QSize frame)
{
    return even(display.width) == frame.width() && even(display.height) == frame.height();
}

} // namespace

QSize RecordingLayout::frameSize(const WindowRect &display)
{
    if (!(display.width >= 1 && display.height >= 1))
        return {0, 0};
    const double width = std::min(display.width, widestFrame);
    return {std::max(2, even(width)), std::max(2, even(display.height * width / display.width))};
}

DisplayPlacement RecordingLayout::placement(const CaptureDisplay &display, QSize frame)
{
    const WindowRect &bounds = display.bounds;
    if (isPixelByPixel(bounds, frame))
        return {display, {0, 0, bounds.width, bounds.height}};
    // The frame is a little off the display's proportions after rounding; that is no reason for a black line.
    if (frameSize(bounds) == frame)
        return {display, {0, 0, double(frame.width()), double(frame.height())}};
    const double scale = std::min({1.0, frame.width() / bounds.width, frame.height() / bounds.height});
    const double width = std::floor(bounds.width * scale);
    const double height = std::floor(bounds.height * scale);
    return {display,
            {std::floor((frame.width() - width) / 2), std::floor((frame.height() - height) / 2), width, height}};
}

} // namespace ardeno
