// SPDX-License-Identifier: GPL-3.0-or-later
#include "json/JsonReader.h"

#include "support/Failure.h"
#include "json/JsonReaderState.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ardeno::json {

Reader::Reader(QByteArrayView text)
{
    PaddedBytes copy(text.size());
    std::memcpy(copy.data(), text.data(), static_cast<size_t>(text.size()));
    m_state = std::make_unique<State>(copy.view());
    m_state->copy = std::move(copy);
}

Reader::Reader(const PaddedBytes &text) : m_state(std::make_unique<State>(text.view())) {}

Reader::~Reader() = default;

void Reader::begin()
{
    m_state->open();
}

void Reader::end()
{
    const char *location = nullptr;
    if (m_state->document.current_location().get(location) != simdjson::SUCCESS)
        return;
    const qint64 position = location - m_state->text.data();
    throw Failure("Json", Malformed, u"The JSON goes on after its end, at byte %1."_qs.arg(position));
}

bool Reader::isNull()
{
    bool isNull = false;
    m_state->check(m_state->current.is_null().get(isNull), "a value");
    m_state->isVerbatim = m_state->isVerbatim && !isNull;
    return isNull;
}

bool Reader::readBool()
{
    bool value = false;
    m_state->check(m_state->current.get_bool().get(value), Need<bool>::text);
    return value;
}

double Reader::readNumber()
{
    double value = 0;
    m_state->check(m_state->current.get_double().get(value), Need<double>::text);
    return value;
}

qint64 Reader::readInteger(qint64 least, qint64 most, const char *need)
{
    int64_t value = 0;
    if (m_state->current.get_int64().get(value)) {
        // "2.0" and "2e0" are whole, too; beyond 2^53 such a number would no longer be exact.
        constexpr double exact = 9007199254740992;
        double number = 0;
        m_state->check(m_state->current.get_double().get(number), need);
        if (std::abs(number) >= exact || std::trunc(number) != number)
            m_state->fail(need);
        value = static_cast<qint64>(number);
    }
    if (value < least || value > most)
        m_state->fail(need);
    return value;
}

void Reader::readText(QString &value)
{
    const std::string_view bytes = m_state->readRawText(Need<QString>::text);
    if (m_state->pool.find(bytes, value) == TextPool::Content::Plain)
        return;
    const std::optional<QString> text = m_state->decoder.decode(bytes);
    if (!text)
        m_state->failMalformed(simdjson::STRING_ERROR);
    value = *text;
    if (m_state->decoder.hasReplaced()) {
        m_state->isVerbatim = false;
    } else {
        m_state->pool.remember(bytes, value);
    }
}

QUuid Reader::readUuid()
{
    const std::string_view text = m_state->readRawText(Need<QUuid>::text);
    const std::optional<QUuid> id = uuidFromText(text);
    if (!id)
        m_state->fail(Need<QUuid>::text);
    // Identifiers are written in capitals.
    if (std::any_of(text.begin(), text.end(), [](char unit) { return unit >= 'a' && unit <= 'f'; }))
        m_state->isVerbatim = false;
    return *id;
}

void Reader::readRecord(void *record, std::span<const FieldReader> fields)
{
    ondemand::object object;
    m_state->check(m_state->current.get_object().get(object), "an object");
    quint64 seen = 0;
    qsizetype expected = 0;
    m_state->path.append(Step{});
    for (auto result : object) {
        if (result.error())
            m_state->failMalformed(result.error());
        ondemand::field &field = result.value_unsafe();
        const char *key = field.key().raw();
        const qsizetype index = m_state->fieldOfKey(field, fields, expected);
        if (index < 0) {
            m_state->checkUnknown(field.value());
            continue;
        }
        const FieldReader &reader = fields[static_cast<size_t>(index)];
        m_state->path.back().key = QByteArrayView(reader.name, reader.nameLength);
        if (seen >> index & 1)
            m_state->failTwice();
        seen |= quint64{1} << index;
        m_state->noticeSpacing(key, reader.nameLength);
        m_state->current = field.value();
        reader.read(*this, record);
        expected = index + 1;
    }
    m_state->path.removeLast();
    m_state->checkMissing(seen, fields);
}

void Reader::readList(void *list, const ListReader &how)
{
    ondemand::array array;
    m_state->check(m_state->current.get_array().get(array), "a list");
    // Counting the list that makes up the file would pass through all of it once more.
    if (m_state->path.size() > 1) {
        size_t count = 0;
        if (const auto error = array.count_elements().get(count))
            m_state->failMalformed(error);
        how.reserve(list, static_cast<qsizetype>(count));
    }
    m_state->path.append(Step{.key = {}, .index = 0});
    for (auto result : array) {
        if (const auto error = result.get(m_state->current))
            m_state->failMalformed(error);
        how.readElement(*this, list);
        ++m_state->path.back().index;
    }
    m_state->path.removeLast();
}

const char *Reader::markVerbatim()
{
    m_state->isVerbatim = true;
    return m_state->current.raw_json_token().data();
}

QByteArrayView Reader::verbatimSince(const char *mark)
{
    const char *behind = nullptr;
    if (!m_state->isVerbatim || m_state->document.current_location().get(behind))
        return {};
    // The next token follows, after white space perhaps.
    while (behind > mark && isSpace(behind[-1]))
        --behind;
    return {mark, behind - mark};
}

} // namespace ardeno::json
