// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "support/Date.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace ardeno {

// Which script lists the tabs of a browser, and so which fields its records have.
enum class BrowserFamily { Chromium, Safari, Firefox };

// A web browser whose tabs can be read.
struct Browser {
    QString id = {};
    QString name = {};
    BrowserFamily family = BrowserFamily::Chromium;

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
};

// The open tabs of the running browsers. Windows for private browsing are never in a report.
class TabSource {
public:
    virtual ~TabSource() = default;

    // Browsers of this desktop alone; they are asked after those that every desktop has.
    virtual QList<Browser> furtherBrowsers() const = 0;
    // Whether the tabs of this browser can be read here at all, running or not.
    virtual Capability availability(const QString &browserID) const = 0;
    virtual bool isRunning(const QString &browserID) = 0;
    // A desktop with scripting runs the script; any other one finds the same records in its own way, in bounded time
    // and off the main thread. Throws Failure when the browser is running and its tabs cannot be read.
    virtual QCoro::Task<TabReport> openTabs(Browser browser, QString script) = 0;
    // The windows of an application, by the window server's numbers, that certainly show an ordinary page: the others
    // may be private. Absent when its windows cannot be private. Answers in bounded time.
    virtual QCoro::Task<std::optional<QSet<quint32>>> ordinaryWindows(QString appID) = 0;
};

} // namespace ardeno
