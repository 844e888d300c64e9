// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/JsonWriter.h"

#include <charconv>
#include <cmath>

namespace ardeno::json {

namespace {

constexpr char upperCaseDigits[] = "0123456789ABCDEF";

char *putHex(char *out, quint8 byte)
{
    *out++ = upperCaseDigits[byte >> 4];
    *out++ = upperCaseDigits[byte & 15];
    return out;
}

bool isPlain(char16_t unit)
{
    return unit >= 0x20 && unit < 0x80 && unit != u'"' && unit != u'\\';
}

// Whether a block of characters can be copied as it is. The loop has a fixed length and no branch so that the compiler
// makes vector instructions of it.
constexpr qsizetype blockLength = 16;

bool isPlainBlock(const char16_t *units)
{
    quint16 others = 0;
    for (qsizetype i = 0; i < blockLength; ++i) {
        const quint16 unit = units[i];
        others |= quint16((quint16(unit - 0x20) >= 0x60) | (unit == u'"') | (unit == u'\\'));
    }
    return others == 0;
}

// Copies as many plain blocks as follow and moves unit behind them.
char *putPlainBlocks(char *out, const char16_t *&unit, const char16_t *end)
{
    while (end - unit >= blockLength && isPlainBlock(unit)) {
        for (qsizetype i = 0; i < blockLength; ++i)
            out[i] = static_cast<char>(unit[i]);
        out += blockLength;
        unit += blockLength;
    }
    return out;
}

char *putEscaped(char *out, char16_t unit)
{
    constexpr std::string_view controls = "\b\t\n\f\r\"\\";
    constexpr std::string_view letters = "btnfr\"\\";
    *out++ = '\\';
    const size_t known = controls.find(static_cast<char>(unit));
    if (known != std::string_view::npos) {
        *out++ = letters[known];
        return out;
    }
    *out++ = 'u';
    return putHex(putHex(out, 0), static_cast<quint8>(unit));
}

char *putThreeBytes(char *out, char32_t code)
{
    *out++ = static_cast<char>(0xE0 | (code >> 12));
    *out++ = static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (code & 0x3F));
    return out;
}

// Puts the character that starts at unit and moves unit behind it.
char *putCharacter(char *out, const char16_t *&unit, const char16_t *end)
{
    const char32_t code = *unit++;
    if (isPlain(static_cast<char16_t>(code))) {
        *out++ = static_cast<char>(code);
        return out;
    }
    if (code < 0x80)
        return putEscaped(out, static_cast<char16_t>(code));
    if (code < 0x800) {
        *out++ = static_cast<char>(0xC0 | (code >> 6));
        *out++ = static_cast<char>(0x80 | (code & 0x3F));
        return out;
    }
    if (!QChar::isSurrogate(code))
        return putThreeBytes(out, code);
    if (!QChar::isHighSurrogate(code) || unit == end || !QChar::isLowSurrogate(*unit))
        return putThreeBytes(out, QChar::ReplacementCharacter);
    const char32_t whole = QChar::surrogateToUcs4(static_cast<char16_t>(code), *unit++);
    *out++ = static_cast<char>(0xF0 | (whole >> 18));
    *out++ = static_cast<char>(0x80 | ((whole >> 12) & 0x3F));
    *out++ = static_cast<char>(0x80 | ((whole >> 6) & 0x3F));
    *out++ = static_cast<char>(0x80 | (whole & 0x3F));
    return out;
}

} // namespace

void Writer::grow(qsizetype bytes)
{
    const qsizetype used = position();
    m_buffer.resize(std::max({used + bytes, 2 * m_buffer.size(), m_buffer.capacity()}));
    m_cursor = m_buffer.data() + used;
    m_end = m_buffer.data() + m_buffer.size();
}

void write(Writer &writer, const QString &text)
{
    constexpr qsizetype mostPerUnit = 6; // "\u0000"
    char *out = writer.room(text.size() * mostPerUnit + 2);
    const auto *unit = reinterpret_cast<const char16_t *>(text.constData());
    const char16_t *end = unit + text.size();
    *out++ = '"';
    while (unit != end) {
        out = putPlainBlocks(out, unit, end);
        // Up to a block one by one: the next may be plain again.
        const char16_t *pause = unit + std::min<qsizetype>(blockLength, end - unit);
        while (unit < pause)
            out = putCharacter(out, unit, end);
    }
    *out++ = '"';
    writer.advanceTo(out);
}

void write(Writer &writer, const QUuid &id)
{
    char *out = writer.room(38);
    *out++ = '"';
    for (int shift = 24; shift >= 0; shift -= 8)
        out = putHex(out, static_cast<quint8>(id.data1 >> shift));
    for (const ushort part : {id.data2, id.data3}) {
        *out++ = '-';
        out = putHex(putHex(out, static_cast<quint8>(part >> 8)), static_cast<quint8>(part));
    }
    *out++ = '-';
    for (int i = 0; i < 8; ++i) {
        if (i == 2)
            *out++ = '-';
        out = putHex(out, id.data4[i]);
    }
    *out++ = '"';
    writer.advanceTo(out);
}

void write(Writer &writer, qint64 number)
{
    constexpr qsizetype most = 20;
    char *out = writer.room(most);
    writer.advanceTo(std::to_chars(out, out + most, number).ptr);
}

void write(Writer &writer, double number)
{
    constexpr qsizetype most = 32;
    constexpr double exactIntegers = 9007199254740992; // 2^53
    if (!std::isfinite(number))
        number = 0;
    const bool isWhole = std::abs(number) < exactIntegers && static_cast<double>(static_cast<qint64>(number)) == number;
    if (isWhole && !std::signbit(number))
        return write(writer, static_cast<qint64>(number));
    char *out = writer.room(most);
    writer.advanceTo(std::to_chars(out, out + most, number).ptr);
}

} // namespace ardeno::json
