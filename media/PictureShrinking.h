// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"
#include "media/PngReader.h"

#include <functional>
#include <optional>

namespace ardeno {

// The picture with at most this many pixels on the longer side, never enlarged: each pixel is the mean of those that it
// stands for. Absent when isWanted, which is asked every now and then, turns false. Throws what the reader does.
std::optional<Picture> shrunken(PngReader &reader, int longestSide, const std::function<bool()> &isWanted);

} // namespace ardeno
