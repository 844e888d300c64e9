// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Date.h"
#include "json/Field.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace ardeno::json {

// Appends to a byte array with room made ahead; what was written is there when the writer ends.
class Writer final {
public:
    explicit Writer(QByteArray &buffer) : m_buffer(buffer), m_cursor(buffer.data() + buffer.size())
    {
        m_end = m_cursor;
    }

    ~Writer() { m_buffer.truncate(m_cursor - m_buffer.constData()); }

    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    // The place to write up to that many bytes at; advanceTo() says how far it went.
    char *room(qsizetype bytes)
    {
        if (m_end - m_cursor < bytes)
            grow(bytes);
        return m_cursor;
    }

    void advanceTo(char *cursor) { m_cursor = cursor; }

    void put(char character)
    {
        *room(1) = character;
        ++m_cursor;
    }

    void put(std::string_view text)
    {
        std::memcpy(room(static_cast<qsizetype>(text.size())), text.data(), text.size());
        m_cursor += text.size();
    }

    // How far the text has come, to be changed once it is known how it goes on.
    qsizetype position() const { return m_cursor - m_buffer.constData(); }

    void change(qsizetype position, char character) { m_buffer.data()[position] = character; }

private:
    void grow(qsizetype bytes);

    QByteArray &m_buffer;
    char *m_cursor;
    char *m_end;
};

void write(Writer &writer, const QString &text);
void write(Writer &writer, const QUuid &id);
void write(Writer &writer, qint64 number);
void write(Writer &writer, double number);

inline void write(Writer &writer, quint32 number)
{
    write(writer, qint64{number});
}

inline void write(Writer &writer, qint32 number)
{
    write(writer, qint64{number});
}

inline void write(Writer &writer, bool value)
{
    writer.put(value ? std::string_view("true") : std::string_view("false"));
}

inline void write(Writer &writer, const Date &date)
{
    write(writer, date.seconds);
}

template <typename T>
void write(Writer &writer, const QList<T> &list);

// ',"name":' of a record's field, made when the program is compiled.
template <JsonRecord R, size_t index>
struct FieldKey {
    static constexpr std::string_view name = std::get<index>(R::fields()).name;

    static constexpr auto make()
    {
        std::array<char, name.size() + 4> key = {',', '"'};
        std::copy(name.begin(), name.end(), key.begin() + 2);
        key[name.size() + 2] = '"';
        key[name.size() + 3] = ':';
        return key;
    }

    static constexpr auto text = make();
};

template <JsonRecord R>
void write(Writer &writer, const R &record);

template <JsonRecord R, size_t index, typename T>
void writeField(Writer &writer, const T &value)
{
    writer.put(std::string_view(FieldKey<R, index>::text.data(), FieldKey<R, index>::text.size()));
    write(writer, value);
}

template <JsonRecord R, size_t index, typename T>
void writeField(Writer &writer, const std::optional<T> &value)
{
    if (value)
        writeField<R, index>(writer, *value);
}

template <JsonRecord R>
void write(Writer &writer, const R &record)
{
    constexpr auto fields = R::fields();
    const qsizetype start = writer.position();
    const auto writeAll = [&]<size_t... index>(std::index_sequence<index...>) {
        (writeField<R, index>(writer, record.*std::get<index>(fields).member), ...);
    };
    writeAll(std::make_index_sequence<std::tuple_size_v<decltype(fields)>>());
    // Every field came with a comma before it, whichever was the first.
    if (writer.position() == start) {
        writer.put('{');
    } else {
        writer.change(start, '{');
    }
    writer.put('}');
}

template <typename T>
void write(Writer &writer, const QList<T> &list)
{
    const qsizetype start = writer.position();
    for (const T &element : list) {
        writer.put(',');
        write(writer, element);
    }
    if (list.isEmpty()) {
        writer.put('[');
    } else {
        writer.change(start, '[');
    }
    writer.put(']');
}

} // namespace ardeno::json
