// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace ardeno {

// One row of a PNG with the UP filter: its type, then red, green and blue of each pixel less those of the row above
// (null for the first row). Pixels in memory order blue, green, red, unused; out holds 1 + 3 * width bytes.
void filterPngRow(const uchar *row, const uchar *above, int width, uchar *out);

} // namespace ardeno
