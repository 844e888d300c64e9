// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <cstddef>

namespace ardeno {

// Undoes the filter of a PNG row in place. The row begins with the type of its filter; length counts the bytes after
// it, as many as the row above has. False when there is no such filter.
bool unfilterPngRow(uchar *row, const uchar *above, size_t length, int channels);

// Pixels of grey (1 channel), grey and opacity (2), red, green and blue (3), or these and opacity (4), as pixels in
// memory order blue, green, red, unused; what is transparent shows white.
void showPngRow(const uchar *row, int width, int channels, uchar *out);

} // namespace ardeno
