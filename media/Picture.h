// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>

namespace ardeno {

// Pixels of 32 bits in memory order blue, green, red, unused; rows of `size.width() * 4` bytes without gaps.
struct Picture {
    QSize size = {};
    QByteArray pixels = {};

    bool operator==(const Picture &) const = default;
};

} // namespace ardeno
