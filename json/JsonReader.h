// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"
#include "json/Field.h"
#include "json/PaddedBytes.h"

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QUuid>

#include <array>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

namespace ardeno::json {

class Reader;

// How one field of a record is read.
struct FieldReader {
    const char *name;
    qsizetype nameLength;
    bool isRequired;
    const char *need; // What stands there in a valid text: "a number".
    void (*read)(Reader &reader, void *record);
};

// How a list is filled: told the number of its elements, then read one by one.
struct ListReader {
    void (*reserve)(void *list, qsizetype count);
    void (*readElement)(Reader &reader, void *list);
};

// Walks through one JSON text. Every function throws Failure of domain "Json" when something else stands there.
class Reader final {
public:
    explicit Reader(QByteArrayView text);
    // The bytes must outlive the reader.
    explicit Reader(const PaddedBytes &text);
    ~Reader();
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    void begin();
    // Refuses whatever follows the value.
    void end();

    // Passes over a null.
    bool isNull();
    bool readBool();
    double readNumber();
    qint64 readInteger(qint64 least, qint64 most, const char *need);
    void readText(QString &value);
    QUuid readUuid();
    void readRecord(void *record, std::span<const FieldReader> fields);
    void readList(void *list, const ListReader &how);

    // Where the current value starts, and all of it once it was read. The second is empty unless the value is written
    // as it would be written here: compact, without unknown keys, nulls or anything that had to be replaced.
    const char *markVerbatim();
    QByteArrayView verbatimSince(const char *mark);

private:
    struct State;

    std::unique_ptr<State> m_state;
};

// A record together with the bytes it was read from, for as long as those live; without bytes when it is to be written
// anew.
template <typename T>
struct Verbatim {
    T value;
    QByteArrayView source = {};
};

// A value to be read into. Making up an identifier for every record would cost more than reading it.
template <typename T>
T blank()
{
    if constexpr (requires { T{.id = QUuid()}; }) {
        return T{.id = QUuid()};
    } else {
        return T{};
    }
}

template <typename T>
struct Need {
    static constexpr const char *text = JsonRecord<T> ? "an object" : "a list";
};

template <>
struct Need<bool> {
    static constexpr const char *text = "true or false";
};

template <>
struct Need<QString> {
    static constexpr const char *text = "a text";
};

template <>
struct Need<QUuid> {
    static constexpr const char *text = "a UUID";
};

template <>
struct Need<double> {
    static constexpr const char *text = "a number";
};

template <>
struct Need<Date> : Need<double> {};

template <>
struct Need<qint64> {
    static constexpr const char *text = "a whole number of at most 64 bits";
};

template <>
struct Need<quint32> {
    static constexpr const char *text = "a whole number from 0 to 4294967295";
};

template <>
struct Need<qint32> {
    static constexpr const char *text = "a whole number from -2147483648 to 2147483647";
};

template <typename T>
struct Need<std::optional<T>> : Need<T> {};

inline void read(Reader &reader, bool &value)
{
    value = reader.readBool();
}

inline void read(Reader &reader, double &value)
{
    value = reader.readNumber();
}

inline void read(Reader &reader, Date &value)
{
    value.seconds = reader.readNumber();
}

inline void read(Reader &reader, QString &value)
{
    reader.readText(value);
}

inline void read(Reader &reader, QUuid &value)
{
    value = reader.readUuid();
}

template <std::integral T>
void read(Reader &reader, T &value)
{
    using Limits = std::numeric_limits<T>;
    value = static_cast<T>(reader.readInteger(Limits::min(), Limits::max(), Need<T>::text));
}

template <typename T>
void read(Reader &reader, std::optional<T> &value);
template <typename T>
void read(Reader &reader, QList<T> &list);
template <typename T>
void read(Reader &reader, Verbatim<T> &value);
template <JsonRecord R>
void read(Reader &reader, R &record);

template <typename T>
inline constexpr bool isOptional = false;
template <typename T>
inline constexpr bool isOptional<std::optional<T>> = true;

template <JsonRecord R, size_t index>
void readField(Reader &reader, void *record)
{
    read(reader, static_cast<R *>(record)->*std::get<index>(R::fields()).member);
}

template <JsonRecord R, size_t index>
constexpr FieldReader fieldReader()
{
    constexpr auto field = std::get<index>(R::fields());
    using Value = std::remove_cvref_t<decltype(std::declval<R &>().*field.member)>;
    return {
        .name = field.name,
        .nameLength = static_cast<qsizetype>(std::char_traits<char>::length(field.name)),
        .isRequired = !isOptional<Value>,
        .need = Need<Value>::text,
        .read = readField<R, index>,
    };
}

template <JsonRecord R>
inline constexpr auto fieldReaders = []<size_t... index>(std::index_sequence<index...>) {
    return std::array<FieldReader, sizeof...(index)>{fieldReader<R, index>()...};
}(std::make_index_sequence<std::tuple_size_v<decltype(R::fields())>>());

template <JsonRecord R>
void read(Reader &reader, R &record)
{
    reader.readRecord(&record, fieldReaders<R>);
}

template <typename T>
void read(Reader &reader, std::optional<T> &value)
{
    if (reader.isNull()) {
        value.reset();
    } else {
        read(reader, value.emplace(blank<T>()));
    }
}

template <typename T>
void read(Reader &reader, QList<T> &list)
{
    static constexpr ListReader how = {
        .reserve = [](void *target, qsizetype count) { static_cast<QList<T> *>(target)->reserve(count); },
        .readElement =
            [](Reader &source, void *target) {
                auto &elements = *static_cast<QList<T> *>(target);
                elements.append(blank<T>());
                read(source, elements.last());
            },
    };
    reader.readList(&list, how);
}

template <typename T>
void read(Reader &reader, Verbatim<T> &value)
{
    const char *mark = reader.markVerbatim();
    read(reader, value.value);
    value.source = reader.verbatimSince(mark);
}

} // namespace ardeno::json
