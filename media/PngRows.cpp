// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngRows.h"

#include <QtEndian>

#include <cstring>

namespace ardeno {

namespace {

// Byte by byte a - b, eight bytes at once: the high bits keep the borrows apart.
quint64 bytesLess(quint64 a, quint64 b)
{
    constexpr quint64 high = 0x8080808080808080;
    return ((a | high) - (b & ~high)) ^ ((a ^ ~b) & high);
}

quint64 twoPixels(const uchar *row, const uchar *above)
{
    return bytesLess(qFromLittleEndian<quint64>(row), above ? qFromLittleEndian<quint64>(above) : 0);
}

// Red in the lowest byte, blue in the third, nothing in the fourth.
quint64 redFirst(quint64 pixel)
{
    return qbswap(quint32(pixel)) >> 8;
}

void filterFourPixels(const uchar *row, const uchar *above, uchar *out)
{
    const quint64 first = twoPixels(row, above);
    const quint64 second = twoPixels(row + 8, above ? above + 8 : nullptr);
    const quint64 third = redFirst(second);
    qToLittleEndian<quint64>(redFirst(first) | redFirst(first >> 32) << 24 | third << 48, out);
    qToLittleEndian<quint32>(quint32(third >> 16 | redFirst(second >> 32) << 8), out + 8);
}

} // namespace

void filterPngRow(const uchar *row, const uchar *above, int width, uchar *out)
{
    constexpr uchar up = 2;
    *out++ = up;
    int x = 0;
    for (; x + 4 <= width; x += 4, row += 16, out += 12) {
        filterFourPixels(row, above, out);
        if (above)
            above += 16;
    }
    for (; x < width; ++x, row += 4) {
        for (int channel = 2; channel >= 0; --channel)
            *out++ = uchar(row[channel] - (above ? above[channel] : 0));
        if (above)
            above += 4;
    }
}

} // namespace ardeno
