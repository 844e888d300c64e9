// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "json/JsonReader.h"
#include "json/JsonWriter.h"

#include <QByteArray>
#include <QByteArrayView>

// Records as compact JSON, driven by their field tables. Keys stand in declared order, absent optionals are left out,
// identifiers are upper case. What JSON cannot hold is replaced: half of a surrogate pair by U+FFFD, and a number that
// is not finite by 0, because one damaged coordinate must not keep the rest of the library from being saved.
namespace ardeno::json {

template <typename T>
void append(QByteArray &buffer, const T &value)
{
    Writer writer(buffer);
    write(writer, value);
}

template <typename T>
QByteArray encode(const T &value)
{
    QByteArray buffer;
    append(buffer, value);
    return buffer;
}

// Throws Failure of domain "Json" that names the place and what is needed there: "checkpoints[3].createdAt: a number is
// required." Keys that the record does not know are passed over but must hold JSON; a key that stands twice is refused,
// because nobody could say which of the two was meant. A byte-order mark is allowed. The text is bytes, or a
// PaddedBytes, which the reader need not copy.
template <typename T>
T decode(const auto &text)
{
    T value = blank<T>();
    Reader reader(text);
    reader.begin();
    read(reader, value);
    reader.end();
    return value;
}

} // namespace ardeno::json
