// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"
#include "json/Field.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QUuid>

#include <concepts>
#include <optional>

// The same records through Qt's own JSON, over the same tables of fields.
namespace ardeno::bench::peer {

inline void fill(const QJsonValue &json, QString &value)
{
    value = json.toString();
}

inline void fill(const QJsonValue &json, QUuid &value)
{
    value = QUuid(json.toString());
}

inline void fill(const QJsonValue &json, bool &value)
{
    value = json.toBool();
}

inline void fill(const QJsonValue &json, double &value)
{
    value = json.toDouble();
}

inline void fill(const QJsonValue &json, Date &value)
{
    value.seconds = json.toDouble();
}

template <std::integral T>
void fill(const QJsonValue &json, T &value)
{
    value = static_cast<T>(json.toInteger());
}

// An empty record: making up an identifier for each would slow the peer down without need.
template <typename T>
T blank()
{
    if constexpr (requires { T{.id = QUuid()}; }) {
        return T{.id = QUuid()};
    } else {
        return T{};
    }
}

template <JsonRecord R>
void fill(const QJsonValue &json, R &record);
template <typename T>
void fill(const QJsonValue &json, QList<T> &list);

template <typename T>
void fill(const QJsonValue &json, std::optional<T> &value)
{
    if (!json.isUndefined() && !json.isNull())
        fill(json, value.emplace(blank<T>()));
}

template <typename T>
void fill(const QJsonValue &json, QList<T> &list)
{
    const QJsonArray array = json.toArray();
    list.reserve(array.size());
    for (const QJsonValue element : array) {
        list.append(blank<T>());
        fill(element, list.last());
    }
}

template <JsonRecord R>
void fill(const QJsonValue &json, R &record)
{
    const QJsonObject object = json.toObject();
    std::apply([&](auto... field) { (fill(object.value(QLatin1String(field.name)), record.*field.member), ...); },
               R::fields());
}

inline QJsonValue made(const QString &value)
{
    return value;
}

inline QJsonValue made(const QUuid &value)
{
    return value.toString(QUuid::WithoutBraces).toUpper();
}

inline QJsonValue made(bool value)
{
    return value;
}

inline QJsonValue made(double value)
{
    return value;
}

inline QJsonValue made(const Date &value)
{
    return value.seconds;
}

template <std::integral T>
QJsonValue made(T value)
{
    return static_cast<qint64>(value);
}

template <JsonRecord R>
QJsonValue made(const R &record);
template <typename T>
QJsonValue made(const QList<T> &list);

template <typename T>
QJsonValue made(const std::optional<T> &value)
{
    return value ? made(*value) : QJsonValue(QJsonValue::Undefined);
}

template <typename T>
QJsonValue made(const QList<T> &list)
{
    QJsonArray array;
    for (const T &element : list)
        array.append(made(element));
    return array;
}

template <JsonRecord R>
QJsonValue made(const R &record)
{
    QJsonObject object;
    // An undefined value is not inserted.
    std::apply([&](auto... field) { (object.insert(QLatin1String(field.name), made(record.*field.member)), ...); },
               R::fields());
    return object;
}

template <JsonRecord R>
R decode(const QByteArray &bytes)
{
    R record;
    fill(QJsonDocument::fromJson(bytes).object(), record);
    return record;
}

template <JsonRecord R>
QByteArray encode(const R &record)
{
    return QJsonDocument(made(record).toObject()).toJson(QJsonDocument::Compact);
}

} // namespace ardeno::bench::peer
