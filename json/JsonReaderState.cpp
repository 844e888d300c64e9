// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/JsonReaderState.h"

#include "support/Failure.h"

#include <cstring>

namespace ardeno::json {

namespace {

constexpr qsizetype sharingPays = 16'384; // Bytes of text from which on equal texts share their memory.
constexpr size_t poolPlaces = 4096;
constexpr int deepestUnknown = 500;

std::string_view withoutSpaceBehind(std::string_view token)
{
    while (!token.empty() && isSpace(token.back()))
        token.remove_suffix(1);
    return token;
}

bool isKey(const char *raw, const FieldReader &field)
{
    return std::memcmp(raw, field.name, static_cast<size_t>(field.nameLength)) == 0 && raw[field.nameLength] == '"';
}

} // namespace

Reader::State::State(QByteArrayView bytes)
    : text(bytes.startsWith("\xEF\xBB\xBF") ? bytes.sliced(3) : bytes),
      pool(text.size() >= sharingPays ? poolPlaces : 0)
{
}

QString Reader::State::place() const
{
    QString name;
    for (const Step &step : path) {
        if (step.index != Step::noIndex) {
            name += u"[%1]"_qs.arg(step.index);
        } else {
            name += (name.isEmpty() ? QString() : QString(".")) + QString::fromUtf8(step.key);
        }
    }
    return name.isEmpty() ? QString("top level") : name;
}

void Reader::State::fail(const char *need, const char *but) const
{
    throw Failure("Json", WrongType, u"%1: %2 is required%3."_qs.arg(place(), QString(need), QString(but)));
}

void Reader::State::failTwice() const
{
    throw Failure("Json", Malformed, u"%1: the key stands there twice."_qs.arg(place()));
}

void Reader::State::failMalformed(simdjson::error_code error)
{
    switch (error) {
    case simdjson::EMPTY:
        throw Failure("Json", Incomplete, "The text is empty.");
    case simdjson::UTF8_ERROR:
        throw Failure("Json", Unreadable, "The text is not valid UTF-8.");
    case simdjson::UNCLOSED_STRING:
    case simdjson::INCOMPLETE_ARRAY_OR_OBJECT:
        throw Failure("Json", Incomplete, "The JSON is incomplete: its end is missing.");
    case simdjson::MEMALLOC:
    case simdjson::CAPACITY:
        throw Failure("Json", Unreadable, "The JSON is too large for the memory of this machine.");
    case simdjson::DEPTH_ERROR:
        throw Failure("Json", Malformed, u"%1: the JSON is nested too deeply."_qs.arg(place()));
    case simdjson::UNESCAPED_CHARS:
        throw Failure("Json", Malformed, "The JSON is malformed: a text holds a bare control character.");
    default:
        break;
    }
    const char *location = nullptr;
    const bool isKnown = !document.current_location().get(location) && location >= text.data();
    const QString where = isKnown ? u" near byte %1"_qs.arg(location - text.data()) : QString();
    throw Failure("Json", Malformed, u"%1: the JSON is malformed%2."_qs.arg(place(), where));
}

void Reader::State::check(simdjson::error_code error, const char *need)
{
    if (error == simdjson::SUCCESS)
        return;
    if (error == simdjson::INCORRECT_TYPE || error == simdjson::SCALAR_DOCUMENT_AS_VALUE ||
        error == simdjson::NUMBER_ERROR)
        fail(need);
    failMalformed(error);
}

void Reader::State::open()
{
    const auto size = static_cast<size_t>(text.size());
    const auto error = parser.iterate(text.data(), size, size + simdjson::SIMDJSON_PADDING).get(document);
    if (error)
        failMalformed(error);
    check(document.get_value().get(current), "an object or a list");
}

// What stands between the quotes; the index of the parser says where it ends.
std::string_view Reader::State::readRawText(const char *need)
{
    const std::string_view token = withoutSpaceBehind(current.raw_json_token());
    ondemand::raw_json_string ignored;
    check(current.get_raw_json_string().get(ignored), need);
    if (token.size() < 2 || token.back() != '"')
        failMalformed(simdjson::TAPE_ERROR);
    return token.substr(1, token.size() - 2);
}

// The index of the field that a key names, -1 for an unknown key. Keys usually come in declared order.
qsizetype Reader::State::fieldOfKey(ondemand::field &field, std::span<const FieldReader> fields, qsizetype expected)
{
    const char *raw = field.key().raw();
    const auto count = static_cast<qsizetype>(fields.size());
    for (qsizetype i = expected; i < expected + count; ++i) {
        const qsizetype index = i < count ? i : i - count;
        if (isKey(raw, fields[static_cast<size_t>(index)]))
            return index;
    }
    std::string_view key;
    if (const auto error = field.unescaped_key().get(key))
        failMalformed(error);
    for (qsizetype i = 0; i < count; ++i) {
        if (fields[static_cast<size_t>(i)].name == key)
            return i;
    }
    path.back().key = QByteArrayView(key.data(), static_cast<qsizetype>(key.size()));
    return -1;
}

// Compact JSON has nothing before the quote of a key but a comma or a bracket, and the value follows at the colon.
void Reader::State::noticeSpacing(const char *key, qsizetype length)
{
    const char before = key[-2];
    const char *behind = key + length;
    isVerbatim =
        isVerbatim && (before == ',' || before == '{') && behind[0] == '"' && behind[1] == ':' && !isSpace(behind[2]);
}

// The value of an unknown key is of no use, but it must be JSON: going on behind a malformed one could misread the
// rest.
void Reader::State::checkUnknown(ondemand::value value, int depth)
{
    isVerbatim = false;
    if (depth > deepestUnknown)
        failMalformed(simdjson::DEPTH_ERROR);
    ondemand::json_type type = ondemand::json_type::null;
    if (const auto error = value.type().get(type))
        failMalformed(error);
    switch (type) {
    case ondemand::json_type::object:
        return checkUnknownObject(value, depth);
    case ondemand::json_type::array:
        return checkUnknownArray(value, depth);
    default:
        return checkUnknownScalar(value, type);
    }
}

void Reader::State::checkUnknownObject(ondemand::value value, int depth)
{
    for (auto result : value.get_object()) {
        ondemand::field field;
        if (const auto error = std::move(result).get(field))
            failMalformed(error);
        checkUnknown(field.value(), depth + 1);
    }
}

void Reader::State::checkUnknownArray(ondemand::value value, int depth)
{
    for (auto result : value.get_array()) {
        ondemand::value element;
        if (const auto error = result.get(element))
            failMalformed(error);
        checkUnknown(element, depth + 1);
    }
}

void Reader::State::checkUnknownScalar(ondemand::value value, ondemand::json_type type)
{
    simdjson::error_code error = simdjson::SUCCESS;
    current = value;
    if (type == ondemand::json_type::string) {
        error = decoder.decode(readRawText(Need<QString>::text)) ? error : simdjson::STRING_ERROR;
    } else if (type == ondemand::json_type::number) {
        error = value.get_double().error();
    } else if (type == ondemand::json_type::boolean) {
        error = value.get_bool().error();
    } else {
        error = value.is_null().error();
    }
    if (error)
        failMalformed(error);
}

void Reader::State::checkMissing(quint64 seen, std::span<const FieldReader> fields)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!fields[i].isRequired || (seen >> i & 1))
            continue;
        path.append(Step{.key = fields[i].name, .index = Step::noIndex});
        fail(fields[i].need, ", but the key is missing");
    }
}

} // namespace ardeno::json
