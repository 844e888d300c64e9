// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/MozLz4.h"

#include "platform/linux/browsers/LittleEndian.h"

#include <lz4.h>

namespace ardeno {

std::optional<json::PaddedBytes> unpackedMozLz4(QByteArrayView file)
{
    constexpr QByteArrayView magic("mozLz40\0", 8);
    constexpr qsizetype largest = 256 << 20;
    constexpr qsizetype densest = 255; // The codec cannot do better.
    LittleEndian::Reader reader(file);
    const bool hasMagic = reader.bytes(magic.size()) == magic;
    const qsizetype size = reader.uint32();
    if (!hasMagic || !reader.isIntact())
        return std::nullopt;
    const QByteArrayView packed = file.sliced(magic.size() + 4);
    if (size > largest || size > densest * packed.size())
        return std::nullopt;
    json::PaddedBytes text(size);
    const int unpacked =
        LZ4_decompress_safe(packed.data(), text.data(), static_cast<int>(packed.size()), static_cast<int>(size));
    return unpacked == size ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace ardeno
