// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngUnfilter.h"

#include <cstdlib>

namespace ardeno {

namespace {

void addAbove(uchar *bytes, const uchar *above, size_t length)
{
    for (size_t i = 0; i < length; ++i)
        bytes[i] = uchar(bytes[i] + above[i]);
}

// Adds to each byte what the function makes of the byte to the left, the one above and the one above that to the left.
template <typename Predict>
void addPredicted(uchar *bytes, const uchar *above, size_t length, size_t step, Predict predict)
{
    for (size_t i = 0; i < length; ++i) {
        const int left = i < step ? 0 : bytes[i - step];
        const int aboveLeft = i < step ? 0 : above[i - step];
        bytes[i] = uchar(bytes[i] + predict(left, above[i], aboveLeft));
    }
}

// The neighbour that is nearest to left + above - aboveLeft.
int nearestNeighbour(int left, int above, int aboveLeft)
{
    const int toLeft = std::abs(above - aboveLeft);
    const int toAbove = std::abs(left - aboveLeft);
    const int toAboveLeft = std::abs(left + above - 2 * aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft)
        return left;
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

uchar overWhite(int value, int opacity)
{
    return uchar(255 + (value - 255) * opacity / 255);
}

} // namespace

bool unfilterPngRow(uchar *row, const uchar *above, size_t length, int channels)
{
    uchar *const bytes = row + 1;
    const auto step = size_t(channels);
    switch (row[0]) {
    case 0:
        return true;
    case 1:
        addPredicted(bytes, above, length, step, [](int left, int, int) { return left; });
        return true;
    case 2:
        addAbove(bytes, above, length);
        return true;
    case 3:
        addPredicted(bytes, above, length, step, [](int left, int up, int) { return (left + up) / 2; });
        return true;
    case 4:
        addPredicted(bytes, above, length, step, nearestNeighbour);
        return true;
    default:
        return false;
    }
}

void showPngRow(const uchar *row, int width, int channels, uchar *out)
{
    const bool isGrey = channels < 3;
    const bool hasOpacity = channels == 2 || channels == 4;
    for (int x = 0; x < width; ++x, row += channels, out += 4) {
        const int opacity = hasOpacity ? row[channels - 1] : 255;
        out[0] = overWhite(row[isGrey ? 0 : 2], opacity);
        out[1] = overWhite(row[isGrey ? 0 : 1], opacity);
        out[2] = overWhite(row[0], opacity);
        out[3] = 255;
    }
}

} // namespace ardeno
