// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace ardeno::bench {

// Seconds from starting the program until the X server has got the first picture of its window. The program is ended
// afterwards.
double secondsToFirstPaint(const QString &program);

// A program with its window, some seconds after its first picture, when nobody touches it.
struct AtRest {
    double bytes = 0;   // Of memory: its own, and its share of what others use, too.
    double wakeUps = 0; // In a second, of all threads together.
};

AtRest measureAtRest(const QString &program);
// Seconds from the call until the X server has got the first picture of a window that is new since and at least that
// wide.
double secondsToPaintAfter(const std::function<void()> &call, int leastWidth);

} // namespace ardeno::bench
