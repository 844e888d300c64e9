// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <cstddef>

namespace ardeno::json {

// How much is widened at a time. The loop has a fixed length and no branch so that the compiler makes vector
// instructions of it.
inline constexpr size_t widenedBlock = 16;

// Writes a block of bytes as UTF-16. Whether that was all: ASCII without a backslash needs no more.
inline bool widenBlock(const char *bytes, char16_t *out)
{
    quint8 others = 0;
    for (size_t i = 0; i < widenedBlock; ++i) {
        const auto byte = static_cast<quint8>(bytes[i]);
        others |= static_cast<quint8>(byte & 0x80) | static_cast<quint8>(byte == '\\');
        out[i] = byte;
    }
    return others == 0;
}

} // namespace ardeno::json
