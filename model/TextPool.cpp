// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/TextPool.h"

#include <cstring>

namespace ardeno::json {

namespace {

quint64 wordAt(const char *bytes, size_t length)
{
    quint64 word = 0;
    std::memcpy(&word, bytes, length);
    return word;
}

// Looks at the length, the first and the last bytes and some in the middle: addresses and titles differ at their ends.
quint64 hashOf(std::string_view bytes)
{
    constexpr quint64 factor = 0x9E3779B97F4A7C15;
    quint64 hash = bytes.size() * factor;
    if (bytes.size() >= 8) {
        hash ^= wordAt(bytes.data(), 8) * factor;
        hash = (hash ^ (hash >> 29)) * factor;
        hash ^= wordAt(bytes.data() + bytes.size() - 8, 8);
        hash = (hash ^ (hash >> 32)) * factor;
        hash ^= wordAt(bytes.data() + bytes.size() / 2 - 4, 8);
    } else {
        hash ^= wordAt(bytes.data(), bytes.size());
    }
    hash *= factor;
    return hash ^ (hash >> 32);
}

// Fixed lengths and no branches, so that the compiler makes vector instructions of the loops.
constexpr size_t blockLength = 16;

// Whether the block is plain; widens it in any case.
bool widenBlock(const char *bytes, char16_t *out)
{
    quint8 others = 0;
    for (size_t i = 0; i < blockLength; ++i) {
        const auto byte = static_cast<quint8>(bytes[i]);
        others |= static_cast<quint8>(byte & 0x80) | static_cast<quint8>(byte == '\\');
        out[i] = byte;
    }
    return others == 0;
}

bool widenAll(std::string_view bytes, char16_t *out)
{
    const char *from = bytes.data();
    const char *end = from + bytes.size();
    for (; static_cast<size_t>(end - from) >= blockLength; from += blockLength, out += blockLength) {
        if (!widenBlock(from, out))
            return false;
    }
    quint8 others = 0;
    for (; from != end; ++from, ++out) {
        const auto byte = static_cast<quint8>(*from);
        others |= static_cast<quint8>(byte & 0x80) | static_cast<quint8>(byte == '\\');
        *out = byte;
    }
    return others == 0;
}

} // namespace

TextPool::Place *TextPool::placeOf(std::string_view bytes)
{
    if (m_places.empty() || bytes.size() > longest)
        return nullptr;
    return &m_places[hashOf(bytes) & (m_places.size() - 1)];
}

TextPool::Found TextPool::text(std::string_view bytes)
{
    if (bytes.empty())
        return {QString(), Content::Plain};
    Place *place = placeOf(bytes);
    if (place && place->bytes == bytes)
        return {place->text, Content::Plain};
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    if (!widenAll(bytes, reinterpret_cast<char16_t *>(text.data())))
        return {QString(), Content::Other};
    if (place)
        *place = {bytes, text};
    return {std::move(text), Content::Plain};
}

void TextPool::remember(std::string_view bytes, const QString &text)
{
    if (Place *place = placeOf(bytes))
        *place = {bytes, text};
}

} // namespace ardeno::json
