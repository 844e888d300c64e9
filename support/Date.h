// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include <compare>

namespace ardeno {

// A moment in seconds since 2001-01-01 00:00 UTC, fractions kept: QDateTime would round it to milliseconds.
struct Date {
    double seconds = 0;

    static Date now();
    static Date fromDateTime(const QDateTime &dateTime);
    QDateTime toDateTime() const;
    // ISO 8601 in UTC, to the second: "2026-01-31T09:41:00Z".
    QString toIsoText() const;

    auto operator<=>(const Date &) const = default;
};

namespace DateText {

// The short time style of the user's locale, no date: "9:41 AM".
QString shortTime(Date date);
// The abbreviated date with the short time: "Jan 31, 2026, 9:41 AM".
QString mediumDateShortTime(Date date);

} // namespace DateText

} // namespace ardeno
