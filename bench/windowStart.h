// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace ardeno::bench {

// Seconds from starting the program until the X server has got the first picture of its window. The program is ended
// afterwards.
double secondsToFirstPaint(const QString &program);

} // namespace ardeno::bench
