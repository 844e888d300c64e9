// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QtEndian>

namespace ardeno::LittleEndian {

// Takes values off the front of bytes. Once something is missing it is no longer intact and answers zeros and nothing.
class Reader final {
public:
    explicit Reader(QByteArrayView bytes) : m_rest(bytes) {}

    bool isIntact() const { return m_isIntact; }

    QByteArrayView bytes(qsizetype count)
    {
        if (count < 0 || count > m_rest.size())
            m_isIntact = false;
        if (!m_isIntact)
            return {};
        const QByteArrayView taken = m_rest.first(count);
        m_rest = m_rest.sliced(count);
        return taken;
    }

    quint8 uint8() { return number<quint8>(); }

    quint16 uint16() { return number<quint16>(); }

    quint32 uint32() { return number<quint32>(); }

    qint32 int32() { return number<qint32>(); }

    // A block of values that says first how long it is.
    Reader pickle()
    {
        const quint32 length = uint32();
        Reader inner(bytes(length));
        inner.m_isIntact = m_isIntact;
        return inner;
    }

    // A counted text of 8-bit units, filled up to four bytes.
    QByteArrayView string8(qsizetype longest) { return text(1, longest); }

    // A counted text of 16-bit units, filled up to four bytes.
    QByteArrayView string16(qsizetype longest) { return text(2, longest); }

private:
    template <typename T>
    T number()
    {
        const QByteArrayView taken = bytes(sizeof(T));
        return taken.isEmpty() ? T() : qFromLittleEndian<T>(taken.data());
    }

    QByteArrayView text(qsizetype unit, qsizetype longest)
    {
        const qsizetype count = int32();
        if (count < 0 || count > longest)
            m_isIntact = false;
        const QByteArrayView taken = bytes(count * unit);
        bytes((4 - count * unit % 4) % 4);
        return taken;
    }

    QByteArrayView m_rest;
    bool m_isIntact = true;
};

// The text of 16-bit units that need not be aligned.
inline QString text(QByteArrayView units)
{
    QString text(units.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(units.data(), text.size(), text.data());
    return text;
}

} // namespace ardeno::LittleEndian
