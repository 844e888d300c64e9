// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"

#include <QSize>

namespace ardeno {

// How a display stands in the frames of a video. Sizes in pixels, both sides of a frame even.
namespace RecordingLayout {

// The frames of a recording of this display: at most 1920 wide, in the display's proportions, never enlarged. Empty
// when the display covers no area.
QSize frameSize(const WindowRect &display);

// Where the display is drawn in frames of that size: all of it, as large as fits, in the middle. A display that is a
// pixel larger than the frame loses that pixel; scaling would blur the rest.
DisplayPlacement placement(const CaptureDisplay &display, QSize frame);

} // namespace RecordingLayout

} // namespace ardeno
