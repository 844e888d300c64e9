// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <lz4.h>

#include <initializer_list>

// Builds state files as browsers write them.
namespace ardeno::sessions {

template <typename T>
QByteArray number(T value)
{
    QByteArray bytes(sizeof(T), 0);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

inline QByteArray numbers(std::initializer_list<qint32> values)
{
    QByteArray bytes;
    for (const qint32 value : values)
        bytes += number(value);
    return bytes;
}

inline QByteArray padded(const QByteArray &bytes)
{
    return bytes + QByteArray((4 - bytes.size() % 4) % 4, 0);
}

inline QByteArray string8(const QByteArray &text)
{
    return number<qint32>(static_cast<qint32>(text.size())) + padded(text);
}

inline QByteArray string16(const QString &text)
{
    QByteArray units;
    for (const QChar unit : text)
        units += number(unit.unicode());
    return number<qint32>(static_cast<qint32>(text.size())) + padded(units);
}

inline QByteArray pickle(const QByteArray &content)
{
    return number(static_cast<quint32>(content.size())) + content;
}

// A state file of the Chromium family, record by record.
class Snss final {
public:
    explicit Snss(qint32 version = 3) : m_bytes("SNSS" + number(version)) {}

    Snss &record(quint8 command, const QByteArray &payload)
    {
        m_bytes += number(static_cast<quint16>(payload.size() + 1)) + number(command) + payload;
        return *this;
    }

    Snss &record(quint8 command, std::initializer_list<qint32> values) { return record(command, numbers(values)); }

    // An ordinary window where the system put it.
    Snss &window(qint32 id, qint32 x = 0) { return record(9, {id, 0}).record(14, {id, x, 10, 800, 600, 1}); }

    Snss &navigation(qint32 tab, qint32 index, const QByteArray &url, const QString &title = {})
    {
        const QByteArray pageState = string8("state of the page");
        return record(6, pickle(numbers({tab, index}) + string8(url) + string16(title) + pageState + numbers({1, 0})));
    }

    // A tab that shows one page.
    Snss &tab(qint32 window, qint32 id, qint32 index, const QByteArray &url, const QString &title = {})
    {
        return record(0, {window, id}).record(2, {id, index}).navigation(id, 0, url, title).record(7, {id, 0});
    }

    Snss &close(quint8 command, qint32 id) { return record(command, numbers({id, 0}) + number<qint64>(1)); }

    // The end of the initial state.
    Snss &marker() { return record(255, QByteArray()); }

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// A state file of Firefox around a text; the difference is added to the size that it claims.
inline QByteArray mozLz4(const QByteArray &text, int difference = 0)
{
    QByteArray packed(LZ4_compressBound(static_cast<int>(text.size())), 0);
    packed.resize(LZ4_compress_default(text.data(), packed.data(), static_cast<int>(text.size()),
                                       static_cast<int>(packed.size())));
    return QByteArray("mozLz40\0", 8) + number(static_cast<quint32>(text.size() + difference)) + packed;
}

} // namespace ardeno::sessions
