// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QList>

namespace ardeno {

// Where the displays stand on the canvas of a still picture. Pixels, origin at the canvas's bottom left, y upwards.
struct ScreenshotLayout {
    double width = 0; // Whole pixels.
    double height = 0;
    double scale = 0;
    QList<WindowRect> placements = {}; // In the order of the frames, fractions kept.

    bool operator==(const ScreenshotLayout &) const = default;
};

// Frames in global coordinates, origin top left, in points. Nothing is enlarged; the widest display is at most 1920
// pixels wide and the canvas at most 8192 on its longer side. Empty when the frames cover no area.
ScreenshotLayout screenshotLayout(const QList<WindowRect> &frames);

} // namespace ardeno
