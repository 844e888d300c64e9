// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/JsonReader.h"

#include "model/JsonText.h"
#include "model/TextPool.h"
#include "support/Failure.h"

#include <QVarLengthArray>

#include <simdjson.h>

#include <cmath>
#include <cstring>

namespace ardeno::json {

namespace {

namespace ondemand = simdjson::ondemand;

constexpr qsizetype sharingPays = 16 * 1024; // Bytes of text from which on equal texts share their memory.
constexpr size_t poolPlaces = 4096;
constexpr qsizetype noIndex = -1;
constexpr int deepestUnknown = 500;

enum FailureCode { WrongType = 1, Malformed = 2, Incomplete = 3, Unreadable = 4 };

// One step of the way from the top to the current value: a key, or the number of an element.
struct Step {
    QByteArrayView key;
    qsizetype index = noIndex;
};

bool isSpace(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t';
}

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

struct Reader::State {
    explicit State(QByteArrayView bytes)
        : text(bytes.startsWith("\xEF\xBB\xBF") ? bytes.sliced(3) : bytes),
          pool(text.size() >= sharingPays ? poolPlaces : 0)
    {
    }

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

QString Reader::State::place() const
{
    QString name;
    for (const Step &step : path) {
        if (step.index != noIndex)
            name += u"[%1]"_qs.arg(step.index);
        else
            name += (name.isEmpty() ? QString() : QString(".")) + QString::fromUtf8(step.key);
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
    if (type == ondemand::json_type::string)
        error = decoder.decode(readRawText(Need<QString>::text)) ? error : simdjson::STRING_ERROR;
    else if (type == ondemand::json_type::number)
        error = value.get_double().error();
    else if (type == ondemand::json_type::boolean)
        error = value.get_bool().error();
    else
        error = value.is_null().error();
    if (error)
        failMalformed(error);
}

void Reader::State::checkMissing(quint64 seen, std::span<const FieldReader> fields)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!fields[i].isRequired || (seen >> i & 1))
            continue;
        path.append(Step{.key = fields[i].name, .index = noIndex});
        fail(fields[i].need, ", but the key is missing");
    }
}

Reader::Reader(QByteArrayView text)
{
    PaddedBytes copy(text.size());
    std::memcpy(copy.data(), text.data(), static_cast<size_t>(text.size()));
    m = std::make_unique<State>(copy.view());
    m->copy = std::move(copy);
}

Reader::Reader(const PaddedBytes &text) : m(std::make_unique<State>(text.view())) {}

Reader::~Reader() = default;

void Reader::begin()
{
    m->open();
}

void Reader::end()
{
    const char *location = nullptr;
    if (m->document.current_location().get(location) == simdjson::SUCCESS)
        throw Failure("Json", Malformed,
                      u"The JSON goes on after its end, at byte %1."_qs.arg(location - m->text.data()));
}

bool Reader::isNull()
{
    bool isNull = false;
    m->check(m->current.is_null().get(isNull), "a value");
    m->isVerbatim = m->isVerbatim && !isNull;
    return isNull;
}

bool Reader::readBool()
{
    bool value = false;
    m->check(m->current.get_bool().get(value), Need<bool>::text);
    return value;
}

double Reader::readNumber()
{
    double value = 0;
    m->check(m->current.get_double().get(value), Need<double>::text);
    return value;
}

qint64 Reader::readInteger(qint64 least, qint64 most, const char *need)
{
    int64_t value = 0;
    if (m->current.get_int64().get(value)) {
        // "2.0" and "2e0" are whole, too; beyond 2^53 such a number would no longer be exact.
        constexpr double exact = 9007199254740992;
        double number = 0;
        m->check(m->current.get_double().get(number), need);
        if (std::abs(number) >= exact || std::trunc(number) != number)
            m->fail(need);
        value = static_cast<qint64>(number);
    }
    if (value < least || value > most)
        m->fail(need);
    return value;
}

void Reader::readText(QString &value)
{
    const std::string_view bytes = m->readRawText(Need<QString>::text);
    if (m->pool.find(bytes, value) == TextPool::Content::Plain)
        return;
    const std::optional<QString> text = m->decoder.decode(bytes);
    if (!text)
        m->failMalformed(simdjson::STRING_ERROR);
    value = *text;
    if (m->decoder.hasReplaced())
        m->isVerbatim = false;
    else
        m->pool.remember(bytes, value);
}

QUuid Reader::readUuid()
{
    const std::optional<QUuid> id = uuidFromText(m->readRawText(Need<QUuid>::text));
    if (!id)
        m->fail(Need<QUuid>::text);
    return *id;
}

void Reader::readRecord(void *record, std::span<const FieldReader> fields)
{
    ondemand::object object;
    m->check(m->current.get_object().get(object), "an object");
    quint64 seen = 0;
    qsizetype expected = 0;
    m->path.append(Step{});
    for (auto result : object) {
        if (result.error())
            m->failMalformed(result.error());
        ondemand::field &field = result.value_unsafe();
        const char *key = field.key().raw();
        const qsizetype index = m->fieldOfKey(field, fields, expected);
        if (index < 0) {
            m->checkUnknown(field.value());
            continue;
        }
        const FieldReader &reader = fields[static_cast<size_t>(index)];
        m->path.back().key = QByteArrayView(reader.name, reader.nameLength);
        if (seen >> index & 1)
            m->failTwice();
        seen |= quint64{1} << index;
        m->noticeSpacing(key, reader.nameLength);
        m->current = field.value();
        reader.read(*this, record);
        expected = index + 1;
    }
    m->path.removeLast();
    m->checkMissing(seen, fields);
}

void Reader::readList(void *list, const ListReader &how)
{
    ondemand::array array;
    m->check(m->current.get_array().get(array), "a list");
    // Counting the list that makes up the file would pass through all of it once more.
    if (m->path.size() > 1) {
        size_t count = 0;
        if (const auto error = array.count_elements().get(count))
            m->failMalformed(error);
        how.reserve(list, static_cast<qsizetype>(count));
    }
    m->path.append(Step{.key = {}, .index = 0});
    for (auto result : array) {
        if (const auto error = result.get(m->current))
            m->failMalformed(error);
        how.readElement(*this, list);
        ++m->path.back().index;
    }
    m->path.removeLast();
}

const char *Reader::markVerbatim()
{
    m->isVerbatim = true;
    return m->current.raw_json_token().data();
}

QByteArrayView Reader::verbatimSince(const char *mark)
{
    const char *behind = nullptr;
    if (!m->isVerbatim || m->document.current_location().get(behind))
        return {};
    // The next token follows, after white space perhaps.
    while (behind > mark && isSpace(behind[-1]))
        --behind;
    return {mark, behind - mark};
}

} // namespace ardeno::json
