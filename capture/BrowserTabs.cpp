// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/BrowserTabs.h"

#include "capture/macos/AppleScripts.h"
#include "support/StoredText.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <utility>

namespace ardeno {

namespace {

using WorkspaceCapture::OpenTabs;

const char *const unreadText =
    QT_TRANSLATE_NOOP("ardeno::BrowserTabs", "%1 tabs weren’t available. Allow its Automation access in System "
                                             "Settings, then try Add current tabs again.");
const char *const noBrowserText =
    QT_TRANSLATE_NOOP("ardeno::BrowserTabs", "No supported browser was open. Open Brave, Chrome, Safari, or "
                                             "Firefox, then choose Add current tabs.");

const char *const uncertainText =
    QT_TRANSLATE_NOOP("ardeno::BrowserTabs", "Whether every saved page of %1 was still open could not be checked.");

void warn(OpenTabs &answer, const char *text, const Browser &browser)
{
    answer.warning = storedText(text).arg(browser.name);
    answer.shownWarning = QCoreApplication::translate("ardeno::BrowserTabs", text).arg(browser.name);
}

OpenTabs unread(const Browser &browser)
{
    OpenTabs answer;
    warn(answer, unreadText, browser);
    answer.unreadBrowserIDs.insert(browser.id);
    answer.unreadBrowserNames.append(browser.name);
    return answer;
}

void markUncertain(OpenTabs &answer, const QSet<qint64> &windows, const Browser &browser)
{
    for (const SavedTab &tab : std::as_const(answer.tabs)) {
        if (windows.contains(tab.window))
            answer.uncertainTabIDs.insert(tab.id);
    }
    if (answer.uncertainTabIDs.isEmpty() || answer.warning)
        return;
    warn(answer, uncertainText, browser);
    answer.uncertainBrowserNames.append(browser.name);
}

// The tabs of one browser.
QCoro::Task<OpenTabs> tabs(TabSource &source, Browser browser)
{
    try {
        const QString script = AppleScripts::openTabs(browser);
        const TabReport report = co_await source.openTabs(browser, script);
        OpenTabs answer = report.isComplete ? OpenTabs() : unread(browser);
        answer.tabs = WorkspaceCapture::parsedTabs(report.records.value_or(QString()), browser);
        answer.writtenAt = report.writtenAt;
        markUncertain(answer, report.uncertainWindows, browser);
        co_return answer;
    } catch (const std::exception &) {
        co_return unread(browser);
    }
}

QCoro::Task<OpenTabs> tabsByFamily(TabSource &source, const Browser &browser)
{
    switch (browser.family) {
    case BrowserFamily::Safari:
        return WorkspaceCapture::safariTabs(source, browser.id, browser.name);
    case BrowserFamily::Firefox:
        return WorkspaceCapture::firefoxTabs(source, browser.id, browser.name);
    case BrowserFamily::Chromium:
        break;
    }
    return WorkspaceCapture::chromiumTabs(source, browser.id, browser.name);
}

std::optional<Date> older(std::optional<Date> a, std::optional<Date> b)
{
    return a && b ? std::min(*a, *b) : a ? a : b;
}

// A decimal integer with or without a sign, and nothing else.
std::optional<qint64> integer(QStringView text)
{
    const bool isSigned = text.startsWith('+') || text.startsWith('-');
    const QStringView digits = text.sliced(isSigned ? 1 : 0);
    const auto isDigit = [](QChar character) { return character >= '0' && character <= '9'; };
    bool fits = false;
    const qint64 number = text.toLongLong(&fits);
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isDigit) || !fits)
        return std::nullopt;
    return number;
}

// As QUuid::createUuid, which spends half of the time of reading many tabs on asking the hardware for each of them.
QList<QUuid> freshIDs(qsizetype count)
{
    QList<quint64> halves(2 * count);
    QRandomGenerator::global()->fillRange(halves.data(), halves.size());
    QList<QUuid> ids;
    for (qsizetype half = 0; half < halves.size(); half += 2) {
        std::array<uchar, 16> bytes = {};
        std::memcpy(bytes.data(), &halves[half], bytes.size());
        bytes[6] = (bytes[6] & 0x0f) | 0x40; // Version 4: random.
        bytes[8] = (bytes[8] & 0x3f) | 0x80; // Variant of RFC 4122.
        ids.append(QUuid::fromRfc4122(QByteArrayView(bytes.data(), bytes.size())));
    }
    return ids;
}

std::optional<SavedTab> parsedTab(QStringView record, const Browser &browser, Date now)
{
    const bool hasWindowID = browser.family == BrowserFamily::Chromium;
    const auto fields = record.split(QChar(TabRecords::fieldSeparator));
    if (fields.size() != (hasWindowID ? 4 : 3))
        return std::nullopt;
    const auto window = integer(fields.first());
    if (!window)
        return std::nullopt;

    SavedTab tab = {.id = {}};
    tab.title = fields.last().toString();
    tab.url = fields.at(fields.size() - 2).toString();
    tab.window = *window;
    tab.browserID = browser.id;
    tab.browserName = browser.name;
    if (hasWindowID)
        tab.browserWindowID = fields.at(1).toString();
    tab.capturedAt = now;
    if (!tab.safeURL())
        return std::nullopt;
    return tab;
}

} // namespace

QList<Browser> WorkspaceCapture::browsers(TabSource &source)
{
    QList<Browser> browsers = {
        {"com.brave.Browser", "Brave", BrowserFamily::Chromium},
        {"com.google.Chrome", "Chrome", BrowserFamily::Chromium},
        {"com.apple.Safari", "Safari", BrowserFamily::Safari},
        {"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox},
    };
    return browsers += source.furtherBrowsers();
}

QCoro::Task<OpenTabs> WorkspaceCapture::browserTabs(TabSource &source, QSet<QString> excludingAppIDs)
{
    OpenTabs all;
    QStringList warnings;
    QStringList shownWarnings;
    for (const Browser &browser : browsers(source)) {
        if (excludingAppIDs.contains(browser.id) || excludingAppIDs.contains(browser.baseID)) {
            all.unreadBrowserIDs.insert(browser.id);
            continue;
        }
        if (!source.isRunning(browser.id))
            continue;
        all.runningBrowserIDs.insert(browser.id);
        const OpenTabs one = co_await tabsByFamily(source, browser);
        all.tabs += one.tabs;
        all.unreadBrowserIDs += one.unreadBrowserIDs;
        all.unreadBrowserNames += one.unreadBrowserNames;
        all.uncertainTabIDs += one.uncertainTabIDs;
        all.uncertainBrowserNames += one.uncertainBrowserNames;
        all.writtenAt = older(all.writtenAt, one.writtenAt);
        if (one.warning) {
            warnings += *one.warning;
            shownWarnings += *one.shownWarning;
        }
    }
    if (all.runningBrowserIDs.isEmpty()) {
        warnings += storedText(noBrowserText);
        shownWarnings += QCoreApplication::translate("ardeno::BrowserTabs", noBrowserText);
    }
    if (!warnings.isEmpty()) {
        all.warning = warnings.join(' ');
        all.shownWarning = shownWarnings.join(' ');
    }
    co_return all;
}

QCoro::Task<OpenTabs> WorkspaceCapture::chromiumTabs(TabSource &source, QString id, QString name)
{
    return tabs(source, Browser{std::move(id), std::move(name), BrowserFamily::Chromium});
}

QCoro::Task<OpenTabs> WorkspaceCapture::safariTabs(TabSource &source, QString id, QString name)
{
    return tabs(source, Browser{std::move(id), std::move(name), BrowserFamily::Safari});
}

QCoro::Task<OpenTabs> WorkspaceCapture::firefoxTabs(TabSource &source, QString id, QString name)
{
    return tabs(source, Browser{std::move(id), std::move(name), BrowserFamily::Firefox});
}

QList<SavedTab> WorkspaceCapture::parsedTabs(const QString &records, const Browser &browser)
{
    const Date now = Date::now();
    QList<SavedTab> tabs;
    for (const QStringView record : QStringView(records).split(QChar(TabRecords::recordSeparator))) {
        if (auto tab = parsedTab(record, browser, now))
            tabs.append(std::move(*tab));
    }
    const QList<QUuid> ids = freshIDs(tabs.size());
    for (qsizetype index = 0; index < tabs.size(); ++index)
        tabs[index].id = ids[index];
    return tabs;
}

std::optional<QString> WorkspaceCapture::tabURLKey(const SavedTab &tab)
{
    const std::optional<WebAddress> address = tab.safeURL();
    return address ? std::optional(address->key()) : std::nullopt;
}

} // namespace ardeno
