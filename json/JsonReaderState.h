// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "json/TextPool.h"

#include <QVarLengthArray>

#include <simdjson.h>

namespace ardeno::json {

namespace ondemand = simdjson::ondemand;

enum FailureCode { WrongType = 1, Malformed = 2, Incomplete = 3, Unreadable = 4 };

// One step of the way from the top to the current value: a key, or the number of an element.
struct Step {
    static constexpr qsizetype noIndex = -1;

    QByteArrayView key;
    qsizetype index = noIndex;
};

inline bool isSpace(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

// Where the reader is, and how it fails.
struct Reader::State {
    explicit State(QByteArrayView bytes);

    std::optional<PaddedBytes> copy; // Of a text that came without room behind it.
    QByteArrayView text;
    ondemand::parser parser;
    ondemand::document document;
    ondemand::value current;
    QVarLengthArray<Step, 16> path;
    TextPool pool;
    TextDecoder decoder;
    bool isVerbatim = true;

    QString place() const;
    [[noreturn]] void fail(const char *need, const char *but = "") const;
    [[noreturn]] void failTwice() const;
    [[noreturn]] void failMalformed(simdjson::error_code error);
    void check(simdjson::error_code error, const char *need);
    std::string_view readRawText(const char *need);
    qsizetype fieldOfKey(ondemand::field &field, std::span<const FieldReader> fields, qsizetype expected);
    void noticeSpacing(const char *key, qsizetype length);
    void checkUnknown(ondemand::value value, int depth = 0);
    void checkUnknownObject(ondemand::value value, int depth);
    void checkUnknownArray(ondemand::value value, int depth);
    void checkUnknownScalar(ondemand::value value, ondemand::json_type type);
    void checkMissing(quint64 seen, std::span<const FieldReader> fields);
    void open();
};

} // namespace ardeno::json
