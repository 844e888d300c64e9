// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/TextPool.h"

#include "json/PlainText.h"

#include <cstring>
#include <utility>

namespace ardeno::json {

namespace {

quint64 wordAt(const char *bytes, size_t length)
{
    quint64 word = 0;
    std::memcpy(&word, bytes, length);
    return word;
}

// Looks at the length, the first and the last bytes and some in the middle: addresses and titles differ at their ends.
quint32 hashOf(std::string_view bytes)
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
    return static_cast<quint32>(hash >> 32);
}

bool widenAll(std::string_view bytes, char16_t *out)
{
    const char *from = bytes.data();
    const char *end = from + bytes.size();
    for (; static_cast<size_t>(end - from) >= widenedBlock; from += widenedBlock, out += widenedBlock) {
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

TextPool::Content TextPool::find(std::string_view bytes, QString &text)
{
    if (bytes.empty()) {
        text.clear();
        return Content::Plain;
    }
    const bool isLooked = !m_places.empty() && bytes.size() <= longest;
    m_hash = isLooked ? hashOf(bytes) : 0;
    const size_t place = m_hash & (m_places.size() - 1);
    if (isLooked && m_marks[place].held == m_hash && m_places[place].bytes == bytes) {
        text = m_places[place].text;
        return Content::Plain;
    }
    text = QString(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    if (!widenAll(bytes, reinterpret_cast<char16_t *>(text.data())))
        return Content::Other;
    remember(bytes, text);
    return Content::Plain;
}

void TextPool::remember(std::string_view bytes, const QString &text)
{
    if (m_places.empty() || bytes.size() > longest)
        return;
    const size_t place = m_hash & (m_places.size() - 1);
    if (std::exchange(m_marks[place].seen, m_hash) != m_hash)
        return;
    m_marks[place].held = m_hash;
    m_places[place] = {bytes, text};
}

} // namespace ardeno::json
