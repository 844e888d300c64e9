// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Date.h"

#include <unicode/datefmt.h>
#include <unicode/locid.h>

#include <chrono>
#include <cmath>
#include <memory>

namespace ardeno {

namespace {

constexpr double referenceInUnixTime = 978307200; // 2001-01-01 00:00 UTC in seconds since 1970.

// How the user writes dates and times. Making one takes as long as formatting twenty, and lists format many.
class DateTimeFormat {
public:
    explicit DateTimeFormat(icu::DateFormat::EStyle dateStyle) : m_dateStyle(dateStyle) {}

    const icu::DateFormat *current()
    {
        const icu::Locale &locale = icu::Locale::getDefault();
        if (!m_format || m_locale != locale) {
            m_format.reset(
                icu::DateFormat::createDateTimeInstance(m_dateStyle, icu::DateFormat::kShort, m_locale = locale));
        }
        return m_format.get();
    }

private:
    icu::DateFormat::EStyle m_dateStyle;
    icu::Locale m_locale;
    std::unique_ptr<icu::DateFormat> m_format = {};
};

QString formatted(Date date, const icu::DateFormat *format)
{
    if (!format)
        return date.toIsoText();
    icu::UnicodeString text;
    format->format((date.seconds + referenceInUnixTime) * 1000, text);
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace

Date Date::now()
{
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count() - referenceInUnixTime};
}

Date Date::fromDateTime(const QDateTime &dateTime)
{
    return {static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000 - referenceInUnixTime};
}

QDateTime Date::toDateTime() const
{
    // Beyond these bounds QDateTime has no valid answer; a damaged record must not be undefined behaviour.
    constexpr double most = 8e15;
    const double milliseconds = std::floor((seconds + referenceInUnixTime) * 1000);
    if (!(std::abs(milliseconds) < most))
        return {};
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds), Qt::UTC);
}

QString Date::toIsoText() const
{
    return toDateTime().toString(Qt::ISODate);
}

QString DateText::shortTime(Date date)
{
    thread_local DateTimeFormat format(icu::DateFormat::kNone);
    return formatted(date, format.current());
}

QString DateText::mediumDateShortTime(Date date)
{
    thread_local DateTimeFormat format(icu::DateFormat::kMedium);
    return formatted(date, format.current());
}

} // namespace ardeno
