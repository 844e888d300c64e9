// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureExclusions.h"

#include "support/Identifiers.h"

#include <algorithm>

namespace ardeno {

namespace {

// The authority of an http or https address: what stands between "://" and the path. QUrl is not asked, because it
// accepts an empty user name, rewrites hosts and refuses paths that browsers accept.
std::optional<QString> authorityOf(const QString &address)
{
    const qsizetype schemeEnd = address.indexOf(u"://"_qs);
    const QStringView scheme = QStringView(address).first(schemeEnd);
    if (scheme != u"http" && scheme != u"https")
        return std::nullopt;
    const qsizetype start = schemeEnd + 3;
    const auto isEnd = [](QChar c) { return c == '/' || c == '?' || c == '#'; };
    const auto end = std::find_if(address.begin() + start, address.end(), isEnd);
    return address.mid(start, end - (address.begin() + start));
}

// Takes ":8080" off; absent when what follows the colon is no port number.
std::optional<QString> withoutPort(const QString &authority)
{
    const qsizetype colon = authority.lastIndexOf(':');
    if (colon < 0)
        return authority;
    const QString port = authority.mid(colon + 1);
    const bool isNumber = std::all_of(port.begin(), port.end(), [](QChar c) { return c >= '0' && c <= '9'; });
    if (!isNumber || port.toULongLong() > 65535 || port.size() > 5)
        return std::nullopt;
    return authority.first(colon);
}

// Undoes percent-encoding and writes an international name in its ASCII form, so that a rule and an address agree
// however each was typed.
QString comparableHost(const QString &host)
{
    const QString decoded = QUrl::fromPercentEncoding(host.toUtf8()).toLower();
    const bool isAscii = std::all_of(decoded.begin(), decoded.end(), [](QChar c) { return c.unicode() < 0x80; });
    const QString ascii = isAscii ? decoded : QString::fromLatin1(QUrl::toAce(decoded));
    return ascii.isEmpty() ? decoded : ascii;
}

QString withoutOuterDots(const QString &host)
{
    const auto isDot = [](QChar c) { return c == '.'; };
    const auto first = std::find_if_not(host.begin(), host.end(), isDot);
    const auto last = std::find_if_not(host.rbegin(), std::make_reverse_iterator(first), isDot).base();
    return host.mid(first - host.begin(), last - first);
}

bool isLabel(const QString &label)
{
    if (label.isEmpty() || label.startsWith('-') || label.endsWith('-'))
        return false;
    const QList<uint> scalars = label.toUcs4();
    return std::all_of(scalars.begin(), scalars.end(),
                       [](char32_t c) { return c == '-' || QChar::isLetterOrNumber(c) || QChar::isMark(c); });
}

} // namespace

QSet<QString> CaptureExclusions::appIDs() const
{
    return idsOf(apps);
}

bool CaptureExclusions::allows(const SavedTab &tab) const
{
    if (appIDs().contains(tab.browserID.value_or("com.google.Chrome")))
        return false;
    const std::optional<QString> host = domainFrom(tab.url);
    if (!host)
        return true;
    return std::none_of(domains.begin(), domains.end(),
                        [&](const QString &rule) { return *host == rule || host->endsWith('.' + rule); });
}

std::optional<QString> CaptureExclusions::domainFrom(const QString &text)
{
    QString address = text.trimmed().toLower();
    if (address.isEmpty() || address.contains('*'))
        return std::nullopt;
    if (!address.contains(u"://"_qs))
        address.prepend(u"https://"_qs);
    const std::optional<QString> authority = authorityOf(address);
    if (!authority || authority->contains('@'))
        return std::nullopt;
    const std::optional<QString> host = withoutPort(*authority);
    if (!host)
        return std::nullopt;
    const QString trimmed = withoutOuterDots(comparableHost(*host));
    const QStringList labels = trimmed.split('.');
    if (!std::all_of(labels.begin(), labels.end(), isLabel))
        return std::nullopt;
    return trimmed;
}

} // namespace ardeno
