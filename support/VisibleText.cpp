// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/VisibleText.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

namespace ardeno {

namespace {

constexpr char32_t nonJoiner = 0x200c;
constexpr char32_t joiner = 0x200d;

enum class Breaks { Kept, Spaces };

bool isControl(char32_t character)
{
    const auto type = u_charType(static_cast<UChar32>(character));
    return type == U_CONTROL_CHAR || type == U_LINE_SEPARATOR || type == U_PARAGRAPH_SEPARATOR;
}

// Almost all text has nothing but letters, which are found to be harmless without a look at each.
bool isPlain(QChar unit)
{
    return unit >= u' ' && unit < u'\x7f';
}

// The character at the place, which moves behind it.
char32_t next(QStringView text, qsizetype *at)
{
    UChar32 character = 0;
    U16_NEXT(text.utf16(), *at, text.size(), character);
    return static_cast<char32_t>(character);
}

QString visible(const QString &text, Breaks breaks)
{
    qsizetype at = std::find_if_not(text.begin(), text.end(), isPlain) - text.begin();
    QString result = text.first(at);
    result.reserve(text.size());
    while (at < text.size()) {
        const qsizetype from = at;
        const char32_t character = next(text, &at);
        if ((character == '\n' && breaks == Breaks::Kept) || !VisibleText::isHidden(character))
            result.append(QStringView(text).sliced(from, at - from));
        else if (isControl(character))
            result.append(u' ');
    }
    return result;
}

QString escaped(QStringView units)
{
    QString result;
    for (const QChar unit : units)
        result += u"\\u%1"_qs.arg(static_cast<uint>(unit.unicode()), 4, 16, QChar(u'0'));
    return result;
}

} // namespace

bool VisibleText::isHidden(char32_t character)
{
    const auto code = static_cast<UChar32>(character);
    if (u_charType(code) != U_FORMAT_CHAR)
        return isControl(character);
    // Signs like that of an Arabic year are seen, though they are counted among the formats.
    return character != joiner && character != nonJoiner &&
           !u_hasBinaryProperty(code, UCHAR_PREPENDED_CONCATENATION_MARK);
}

QString VisibleText::oneLine(const QString &text)
{
    return visible(text, Breaks::Spaces);
}

QString VisibleText::lines(const QString &text)
{
    return visible(text, Breaks::Kept);
}

QByteArray VisibleText::escapedJson(const QByteArray &json)
{
    const auto isAscii = [](char byte) { return byte >= ' ' && byte < '\x7f'; };
    if (std::all_of(json.begin(), json.end(), isAscii))
        return json;
    // What is hidden stands within texts alone, as nothing is written around them.
    const QString text = QString::fromUtf8(json);
    QString result;
    result.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype from = at;
        const bool hides = isHidden(next(text, &at));
        const QStringView units = QStringView(text).sliced(from, at - from);
        if (hides)
            result += escaped(units);
        else
            result += units;
    }
    return result.toUtf8();
}

} // namespace ardeno
