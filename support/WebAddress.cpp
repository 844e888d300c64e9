// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/WebAddress.h"

#include <QUrl>

#include <arpa/inet.h>

#include <unicode/uidna.h>

#include <algorithm>
#include <array>
#include <memory>

namespace ardeno {

namespace {

constexpr QStringView schemes[] = {u"https", u"http"};

// What browsers pass over around an address.
QStringView withoutMargin(QStringView text)
{
    const auto isMargin = [](QChar c) { return c.unicode() <= 0x20; };
    while (!text.isEmpty() && isMargin(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isMargin(text.back()))
        text.chop(1);
    return text;
}

// Empty when it is no scheme of the web. The letters are ASCII.
QStringView schemeOf(QStringView text)
{
    for (const QStringView scheme : schemes) {
        if (text.startsWith(scheme, Qt::CaseInsensitive) && text.sliced(scheme.size()).startsWith(':'))
            return scheme;
    }
    return {};
}

// Whether no host may hold it.
bool isForbidden(QChar character)
{
    return character.unicode() <= 0x20 || character.unicode() == 0x7F ||
           QStringView(u"#/<>?@\\^|\"`{}%").contains(character);
}

bool isPort(QStringView digits)
{
    const auto isDigit = [](QChar c) { return c >= '0' && c <= '9'; };
    return std::all_of(digits.begin(), digits.end(), isDigit) && digits.size() <= 5 && digits.toULongLong() <= 65535;
}

// In ASCII, by the mapping that browsers use. Names that DNS would refuse (for their hyphens, say) are none the worse.
std::optional<QString> asciiName(const QString &name)
{
    constexpr uint32_t harmless = UIDNA_ERROR_EMPTY_LABEL | UIDNA_ERROR_LABEL_TOO_LONG |
                                  UIDNA_ERROR_DOMAIN_NAME_TOO_LONG | UIDNA_ERROR_LEADING_HYPHEN |
                                  UIDNA_ERROR_TRAILING_HYPHEN | UIDNA_ERROR_HYPHEN_3_4;
    const auto isSimple = [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == '.' || c == '-' || c == '_');
    };
    if (std::all_of(name.begin(), name.end(), isSimple))
        return name.toLower();
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UIDNA, decltype(&uidna_close)> mapping(
        uidna_openUTS46(UIDNA_NONTRANSITIONAL_TO_ASCII, &status), &uidna_close);
    UIDNAInfo info = UIDNA_INFO_INITIALIZER;
    QString mapped(std::max<qsizetype>(256, name.size() * 8), Qt::Uninitialized);
    const int32_t length = uidna_nameToASCII(
        mapping.get(), reinterpret_cast<const UChar *>(name.utf16()), static_cast<int32_t>(name.size()),
        reinterpret_cast<UChar *>(mapped.data()), static_cast<int32_t>(mapped.size()), &info, &status);
    if (U_FAILURE(status) || (info.errors & ~harmless) != 0)
        return std::nullopt;
    mapped.truncate(length);
    return mapped;
}

bool isPlainCharacter(QChar character)
{
    return character.unicode() > 0x20 && character.unicode() < 0x7F;
}

// With what no address may hold percent-encoded.
QString encoded(const QString &part)
{
    QString all;
    for (const char byte : part.toUtf8()) {
        const auto character = QChar::fromLatin1(byte);
        all += isPlainCharacter(character) ? QString(character)
                                           : QString::fromLatin1('%' + QByteArray(1, byte).toHex().toUpper());
    }
    return all;
}

} // namespace

bool WebAddress::isWeb(QStringView text)
{
    return !schemeOf(withoutMargin(text)).isEmpty();
}

std::optional<QString> WebAddress::comparableHost(QStringView host)
{
    const QString decoded = QUrl::fromPercentEncoding(host.toUtf8());
    if (decoded.startsWith('[')) // IPv6, which has one form of its own in browsers.
        return decoded.endsWith(']') ? std::optional(decoded.toLower()) : std::nullopt;
    const std::optional<QString> name = asciiName(decoded);
    if (!name || name->isEmpty() || std::any_of(name->begin(), name->end(), isForbidden))
        return std::nullopt;
    const bool isNumber = name->front() >= '0' && name->front() <= '9';
    if (in_addr number = {}; isNumber && ::inet_aton(name->toLatin1().constData(), &number) != 0) {
        std::array<char, INET_ADDRSTRLEN> text = {};
        return QString::fromLatin1(::inet_ntop(AF_INET, &number, text.data(), text.size()));
    }
    return name;
}

std::optional<WebAddress> WebAddress::parse(const QString &text)
{
    const QStringView trimmed = withoutMargin(text);
    const QStringView scheme = schemeOf(trimmed);
    if (scheme.isEmpty() || !trimmed.sliced(scheme.size()).startsWith(u"://"))
        return std::nullopt;
    const qsizetype start = scheme.size() + 3;
    const auto endsAuthority = [](QChar c) { return c == '/' || c == '?' || c == '#' || c == '\\'; };
    const qsizetype end = std::find_if(trimmed.begin() + start, trimmed.end(), endsAuthority) - trimmed.begin();
    const QStringView authority = trimmed.sliced(start, end - start);
    const qsizetype userEnd = authority.lastIndexOf('@') + 1;
    const QStringView place = authority.sliced(userEnd);
    // The colons of an IPv6 address stand inside brackets.
    const qsizetype colon = place.indexOf(':', std::max<qsizetype>(place.lastIndexOf(']'), 0));
    const QStringView port = colon < 0 ? QStringView() : place.sliced(colon + 1);
    const std::optional<QString> host = comparableHost(colon < 0 ? place : place.first(colon));
    if (!host || !isPort(port))
        return std::nullopt;
    WebAddress address;
    address.m_text = trimmed.toString();
    address.m_scheme = scheme.toString();
    address.m_user = authority.first(userEnd).toString();
    address.m_host = *host;
    if (!port.isEmpty() && port.toInt() != (scheme == u"https" ? 443 : 80))
        address.m_port = ':' + port.toString();
    address.m_rest = trimmed.sliced(end).toString();
    return address;
}

QString WebAddress::key() const
{
    return m_scheme + "://" + m_user + m_host + m_port + m_rest;
}

QString WebAddress::toOpen() const
{
    if (std::all_of(m_text.begin(), m_text.end(), isPlainCharacter))
        return m_text;
    return m_scheme + "://" + encoded(m_user) + m_host + m_port + encoded(m_rest);
}

} // namespace ardeno
