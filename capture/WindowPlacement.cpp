// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowPlacement.h"

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

using WindowLayout::DisplayEntry;

// In points: no window is made smaller than this, unless the display is.
constexpr double narrowest = 120;
constexpr double lowest = 80;

bool isRectangle(const WindowRect &frame)
{
    return std::isfinite(frame.x) && std::isfinite(frame.y) && std::isfinite(frame.width) &&
           std::isfinite(frame.height) && frame.width > 0 && frame.height > 0;
}

const DisplayEntry *withID(const QList<DisplayEntry> &displays, quint32 id)
{
    const auto found =
        std::find_if(displays.begin(), displays.end(), [&](const DisplayEntry &display) { return display.id == id; });
    return found == displays.end() ? nullptr : &*found;
}

const DisplayEntry *target(const SavedWindow &saved, const QList<DisplayEntry> &displays, quint32 mainID)
{
    if (const DisplayEntry *same = withID(displays, saved.displayID))
        return same;
    if (const DisplayEntry *main = withID(displays, mainID))
        return main;
    return displays.isEmpty() ? nullptr : &displays.first();
}

// The place on a span that is as far along as the old place was on the old span.
double mapped(double place, double oldStart, double oldLength, double start, double length)
{
    return start + length * (place - oldStart) / std::max(oldLength, 1.0);
}

} // namespace

bool WindowPlacement::isNear(const WindowRect &a, const WindowRect &b)
{
    return std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1 && std::abs(a.width - b.width) <= 1 &&
           std::abs(a.height - b.height) <= 1;
}

std::optional<WindowRect> WindowPlacement::fit(const SavedWindow &saved, const QList<DisplayEntry> &displays,
                                               quint32 mainID)
{
    const DisplayEntry *display = target(saved, displays, mainID);
    if (!isRectangle(saved.frame) || !display)
        return std::nullopt;
    const WindowRect &to = display->usableFrame;
    const WindowRect &from = saved.displayFrame;
    WindowRect frame = saved.frame;
    if (display->id != saved.displayID || to != from) {
        frame.x = mapped(frame.x, from.x, from.width, to.x, to.width);
        frame.y = mapped(frame.y, from.y, from.height, to.y, to.height);
    }
    frame.width = std::min(std::max(frame.width, narrowest), to.width);
    frame.height = std::min(std::max(frame.height, lowest), to.height);
    // std::max(to.x, NaN) is to.x: a damaged coordinate becomes the display's top left.
    frame.x = std::min(std::max(to.x, frame.x), to.maxX() - frame.width);
    frame.y = std::min(std::max(to.y, frame.y), to.maxY() - frame.height);
    return frame;
}

bool WindowPlacement::isInPlace(const WindowRect &frame, const SavedWindow &saved, const QList<DisplayEntry> &displays,
                                quint32 mainID)
{
    const DisplayEntry *const same = withID(displays, saved.displayID);
    const bool isSameDisplay = same && same->usableFrame == saved.displayFrame;
    const auto fitting = fit(saved, displays, mainID);
    return (isSameDisplay && isNear(frame, saved.frame)) || (fitting && isNear(frame, *fitting));
}

} // namespace ardeno
