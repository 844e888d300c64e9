// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/JsonText.h"

#include "json/PlainText.h"

#include <algorithm>
#include <array>

namespace ardeno::json {

namespace {

constexpr quint8 noDigit = 0xFF;

constexpr std::array<quint8, 256> makeDigits()
{
    std::array<quint8, 256> digits = {};
    digits.fill(noDigit);
    for (quint8 i = 0; i < 10; ++i)
        digits['0' + i] = i;
    for (quint8 i = 0; i < 6; ++i)
        digits['a' + i] = digits['A' + i] = static_cast<quint8>(10 + i);
    return digits;
}

constexpr std::array<quint8, 256> hexDigits = makeDigits();

// The value of two hexadecimal digits, or more than 255.
unsigned hexByte(const char *text)
{
    const unsigned high = hexDigits[static_cast<quint8>(text[0])];
    const unsigned low = hexDigits[static_cast<quint8>(text[1])];
    return (high | low) == noDigit || high == noDigit || low == noDigit ? 0x100U : high << 4 | low;
}

// What stands for the letter after a backslash, or 0.
char16_t unescaped(char letter)
{
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::u16string_view meanings = u"\"\\/\b\f\n\r\t";
    const size_t found = letters.find(letter);
    return found == std::string_view::npos ? u'\0' : meanings[found];
}

} // namespace

std::optional<QString> TextDecoder::decode(std::string_view bytes)
{
    // No text has more code units than bytes.
    if (m_units.size() < bytes.size())
        m_units.resize(bytes.size());
    m_unit = m_units.data();
    m_hasSurrogates = m_hasReplaced = false;
    const char *end = bytes.data() + bytes.size();
    for (const char *byte = bytes.data(); byte != end;) {
        while (static_cast<size_t>(end - byte) >= widenedBlock && widenBlock(byte, m_unit)) {
            byte += widenedBlock;
            m_unit += widenedBlock;
        }
        byte = decodeSome(byte, std::min(byte + widenedBlock, end), end);
        if (!byte)
            return std::nullopt;
    }
    if (m_hasSurrogates)
        replaceHalves();
    return QString(reinterpret_cast<const QChar *>(m_units.data()), m_unit - m_units.data());
}

// Decodes character by character until the pause has been reached.
const char *TextDecoder::decodeSome(const char *byte, const char *pause, const char *end)
{
    while (byte && byte < pause) {
        if (static_cast<quint8>(*byte) >= 0x80) {
            byte = decodeMultiByte(byte);
        } else if (*byte != '\\') {
            *m_unit++ = static_cast<char16_t>(*byte++);
        } else {
            byte = decodeEscape(byte + 1, end);
        }
    }
    return byte;
}

const char *TextDecoder::decodeEscape(const char *byte, const char *end)
{
    if (byte == end)
        return nullptr;
    if (*byte == 'u')
        return decodeCodeUnit(byte + 1, end);
    const char16_t unit = unescaped(*byte);
    *m_unit++ = unit;
    return unit ? byte + 1 : nullptr;
}

const char *TextDecoder::decodeCodeUnit(const char *byte, const char *end)
{
    if (end - byte < 4)
        return nullptr;
    const unsigned high = hexByte(byte);
    const unsigned low = hexByte(byte + 2);
    if (high > 0xFF || low > 0xFF)
        return nullptr;
    const auto unit = static_cast<char16_t>(high << 8 | low);
    m_hasSurrogates = m_hasSurrogates || QChar::isSurrogate(unit);
    *m_unit++ = unit;
    return byte + 4;
}

const char *TextDecoder::decodeMultiByte(const char *byte)
{
    const auto lead = static_cast<quint8>(*byte);
    const auto next = [&](int i) { return static_cast<char32_t>(byte[i] & 0x3F); };
    if (lead < 0xE0) {
        *m_unit++ = static_cast<char16_t>((lead & 0x1F) << 6 | next(1));
        return byte + 2;
    }
    if (lead < 0xF0) {
        *m_unit++ = static_cast<char16_t>((lead & 0x0F) << 12 | next(1) << 6 | next(2));
        return byte + 3;
    }
    const char32_t code = static_cast<char32_t>(lead & 0x07) << 18 | next(1) << 12 | next(2) << 6 | next(3);
    *m_unit++ = QChar::highSurrogate(code);
    *m_unit++ = QChar::lowSurrogate(code);
    return byte + 4;
}

void TextDecoder::replaceHalves()
{
    for (char16_t *unit = m_units.data(); unit != m_unit; ++unit) {
        if (QChar::isHighSurrogate(*unit) && unit + 1 != m_unit && QChar::isLowSurrogate(unit[1])) {
            ++unit;
        } else if (QChar::isSurrogate(*unit)) {
            *unit = QChar::ReplacementCharacter;
            m_hasReplaced = true;
        }
    }
}

std::optional<QUuid> uuidFromText(std::string_view text)
{
    constexpr std::array<quint8, 16> places = {0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30, 32, 34};
    if (text.size() != 36 || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-')
        return std::nullopt;
    std::array<unsigned, 16> b;
    unsigned all = 0;
    for (size_t i = 0; i < places.size(); ++i)
        all |= b[i] = hexByte(text.data() + places[i]);
    if (all > 0xFF)
        return std::nullopt;
    const auto byte = [&](size_t i) { return static_cast<uchar>(b[i]); };
    return QUuid(b[0] << 24 | b[1] << 16 | b[2] << 8 | b[3], static_cast<ushort>(b[4] << 8 | b[5]),
                 static_cast<ushort>(b[6] << 8 | b[7]), byte(8), byte(9), byte(10), byte(11), byte(12), byte(13),
                 byte(14), byte(15));
}

} // namespace ardeno::json
