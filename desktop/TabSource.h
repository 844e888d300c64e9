// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "support/Date.h"

#include <QCoroTask>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// Which script lists the tabs of a browser, and so which fields its records have.
enum class BrowserFamily { Chromium, Safari, Firefox };

// A web browser.
struct Browser {
    QString id = {};
    QString name = {};
    BrowserFamily family = BrowserFamily::Chromium;
    QString baseID = {}; // Of the browser that runs under this other name; it is excluded with either.

    bool operator==(const Browser &) const = default;
};

// How open tabs travel as text. A Chromium record is the window's number, the browser's own identifier of the window,
// the address and the title; in the other families the identifier is missing.
namespace TabRecords {

inline constexpr char16_t fieldSeparator = 31;  // Between two fields.
inline constexpr char16_t recordSeparator = 30; // After each record.

} // namespace TabRecords

// What one browser answered.
struct TabReport {
    std::optional<QString> records = {}; // Absent when the browser gave no text.
    std::optional<Date> writtenAt = {};  // When the browser last wrote down what was read; absent: it was asked itself.
    bool isComplete = true;              // False: some of its windows could not be read.
    QSet<qint64> uncertainWindows = {};  // Numbers of those that are listed and may be closed already.
};

// What a window of a browser shows, as the browser wrote it down.
struct ShownPage {
    QString title = {};         // The window's, with the page's name as it was written down.
    QStringList addresses = {}; // Of all open pages of this name: it shows one of them.

    bool operator==(const ShownPage &) const = default;
};

// All windows of browsers by the window server's numbers, also of those whose pages nobody can read. Without a page:
// what it shows is not known and may be private.
using BrowserWindows = QHash<quint32, std::optional<ShownPage>>;

// The open tabs of the running browsers. Windows for private browsing are never in a report.
class TabSource {
public:
    virtual ~TabSource() = default;

    // Browsers of this desktop alone, with those that run under a name of their own or that nobody can read; they are
    // asked after those that every desktop has.
    virtual QList<Browser> furtherBrowsers() = 0;
    // Whether the tabs of this browser can be read here at all, running or not.
    virtual Capability availability(const QString &browserID) const = 0;
    virtual bool isRunning(const QString &browserID) = 0;
    // A desktop with scripting runs the script; any other one finds the same records in its own way, in bounded time
    // and off the main thread. Throws Failure when the browser is running and its tabs cannot be read.
    virtual QCoro::Task<TabReport> openTabs(Browser browser, QString script) = 0;
    // Answers in bounded time and never throws.
    virtual QCoro::Task<BrowserWindows> browserWindows() = 0;
};

} // namespace ardeno
