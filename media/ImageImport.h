// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"
#include "support/Failure.h"
#include "support/FileDescriptor.h"

#include <QString>

#include <functional>

namespace ardeno {

// Reads pictures of many formats (PNG, JPEG, HEIC, AVIF, WebP, TIFF and GIF), upright, in the colours of sRGB and over
// white. Memory grows with the result, not with the picture. Any thread; all functions wait.
namespace ImageImport {

// The domain of the failure of a file that is no picture of a known format; what else goes wrong has another one.
inline constexpr auto notAnImageDomain = "NotAnImage";

inline constexpr int longestSide = 8192;

// Writes the picture as a new PNG file of at most longestSide pixels on the longer side. Throws Failure and leaves no
// file behind then; a picture that is damaged or cut short, or too large to be read, is refused. Ends early with
// ended() when isWanted turns false.
void writePng(const QString &source, const QString &target, const std::function<bool()> &isWanted = {});

// What is thrown where nobody wants the result any more.
Failure ended();

// The picture in this regular file made small, never enlarged; ends early with Failure when isWanted turns false.
// Throws Failure.
Picture thumbnail(const FileDescriptor &source, int longestSide, const std::function<bool()> &isWanted);

// How large the thumbnail would be. Reads no pixels; throws Failure.
QSize sizeOf(const FileDescriptor &source, int longestSide);

} // namespace ImageImport

} // namespace ardeno
