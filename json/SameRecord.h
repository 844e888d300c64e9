// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"
#include "json/Field.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <bit>
#include <concepts>
#include <optional>
#include <tuple>

namespace ardeno {

// Whether two values would be written alike. Texts and lists that share their memory are known to be equal without a
// look at their content, which makes the comparison of a library with its last copy almost free. Unlike ==, a number
// that is no number is like itself.
inline bool isSame(double a, double b)
{
    return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

inline bool isSame(const Date &a, const Date &b)
{
    return isSame(a.seconds, b.seconds);
}

inline bool isSame(const QUuid &a, const QUuid &b)
{
    return a == b;
}

template <std::integral T>
bool isSame(T a, T b)
{
    return a == b;
}

inline bool isSame(const QString &a, const QString &b)
{
    return a.size() == b.size() && (a.constData() == b.constData() || a == b);
}

template <typename T>
bool isSame(const std::optional<T> &a, const std::optional<T> &b);
template <typename T>
bool isSame(const QList<T> &a, const QList<T> &b);

template <JsonRecord R>
bool isSame(const R &a, const R &b)
{
    return std::apply([&](auto... field) { return (isSame(a.*field.member, b.*field.member) && ...); }, R::fields());
}

template <typename T>
bool isSame(const std::optional<T> &a, const std::optional<T> &b)
{
    return a.has_value() == b.has_value() && (!a || isSame(*a, *b));
}

template <typename T>
bool isSame(const QList<T> &a, const QList<T> &b)
{
    if (a.size() != b.size())
        return false;
    if (a.constData() == b.constData())
        return true;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (!isSame(a[i], b[i]))
            return false;
    }
    return true;
}

} // namespace ardeno
