// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureExclusions.h"

#include "support/Identifiers.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace ardeno {

namespace {

// Of what was typed: what stands between "://" and the path.
std::optional<QString> typedAuthority(const QString &address)
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

QString withoutOuterDots(const QString &host)
{
    const auto isDot = [](QChar c) { return c == '.'; };
    const auto first = std::find_if_not(host.begin(), host.end(), isDot);
    const auto last = std::find_if_not(host.rbegin(), std::make_reverse_iterator(first), isDot).base();
    return host.mid(first - host.begin(), last - first);
}

// Of what was typed; what no website can be called stays as it is.
QString asciiHost(const QString &host)
{
    const QString decoded = QUrl::fromPercentEncoding(host.toUtf8()).toLower();
    const bool isAscii = std::all_of(decoded.begin(), decoded.end(), [](QChar c) { return c.unicode() < 0x80; });
    return isAscii ? decoded : WebAddress::comparableHost(decoded).value_or(decoded);
}

// Whether the host is the rule's or one below it. A rule may have been written into the file in any form.
bool isWithin(const QString &host, const QString &rule)
{
    const QString named = withoutOuterDots(host);
    const QString domain = withoutOuterDots(WebAddress::comparableHost(rule).value_or(rule.toLower()));
    return named == domain || named.endsWith('.' + domain);
}

// The pages that an address of the browser itself shows ("view-source:https://…", "about:reader?url=https%3A%2F%2F…").
QStringList pagesInside(const QString &address)
{
    static const QRegularExpression page("https?://[^&]+", QRegularExpression::CaseInsensitiveOption);
    QStringList pages;
    for (const QString &text : {address, QUrl::fromPercentEncoding(address.toUtf8())}) {
        for (auto found = page.globalMatch(text); found.hasNext();)
            pages += found.next().captured();
    }
    return pages;
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
    return !appIDs().contains(tab.browserID.value_or("com.google.Chrome")) && allowsPage(tab.url);
}

bool CaptureExclusions::allowsPage(const QString &address) const
{
    if (domains.isEmpty())
        return true;
    const QStringList pages = WebAddress::isWeb(address) ? QStringList(address) : pagesInside(address);
    return std::all_of(pages.begin(), pages.end(), [this](const QString &page) {
        const std::optional<WebAddress> web = WebAddress::parse(page);
        // Of which website it is, nobody knows, so it may be any.
        return web && std::none_of(domains.begin(), domains.end(),
                                   [&](const QString &rule) { return isWithin(web->host(), rule); });
    });
}

std::optional<QString> CaptureExclusions::domainFrom(const QString &text)
{
    QString address = text.trimmed().toLower();
    if (address.isEmpty() || address.contains('*'))
        return std::nullopt;
    if (!address.contains(u"://"_qs))
        address.prepend(u"https://"_qs);
    const std::optional<QString> authority = typedAuthority(address);
    if (!authority || authority->contains('@'))
        return std::nullopt;
    const std::optional<QString> host = withoutPort(*authority);
    if (!host)
        return std::nullopt;
    const QString trimmed = withoutOuterDots(asciiHost(*host));
    const QStringList labels = trimmed.split('.');
    if (!std::all_of(labels.begin(), labels.end(), isLabel))
        return std::nullopt;
    return trimmed;
}

} // namespace ardeno
