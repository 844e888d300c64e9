// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Property.h"

#include <unicode/ucnv.h>

#include <QStringDecoder>

#include <utility>

namespace ardeno {

namespace {

// In units of four bytes: longer than any sensible title or list of windows.
constexpr quint32 longestProperty = 65536;

QByteArray bytesOf(xcb_get_property_reply_t &reply)
{
    return QByteArray(static_cast<const char *>(xcb_get_property_value(&reply)), xcb_get_property_value_length(&reply));
}

// Compound text without parts in UTF-8.
QString fromClassicCompoundText(const QByteArray &bytes)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter *converter = ucnv_open("x11-compound-text", &status);
    if (U_FAILURE(status))
        return QString::fromLatin1(bytes);
    QString text(bytes.size() * 2 + 1, QChar(0));
    const int32_t length =
        ucnv_toUChars(converter, reinterpret_cast<UChar *>(text.data()), static_cast<int32_t>(text.size()),
                      bytes.constData(), static_cast<int32_t>(bytes.size()), &status);
    ucnv_close(converter);
    if (U_FAILURE(status))
        return QString::fromLatin1(bytes);
    text.truncate(length);
    return text;
}

// The converter does not know the escape sequence that leads to UTF-8 and the one that leads back.
QString fromCompoundText(const QByteArray &bytes)
{
    constexpr QByteArrayView toUtf8 = "\x1b%G";
    constexpr QByteArrayView back = "\x1b%@";
    QString text;
    qsizetype at = 0;
    while (at < bytes.size()) {
        qsizetype start = bytes.indexOf(toUtf8, at);
        if (start < 0)
            start = bytes.size();
        text += fromClassicCompoundText(bytes.mid(at, start - at));
        qsizetype end = bytes.indexOf(back, start);
        if (end < 0)
            end = bytes.size();
        text += QString::fromUtf8(bytes.mid(start + toUtf8.size(), end - start - toUtf8.size()));
        at = end + back.size();
    }
    return text;
}

// Latin-1 by the rules; but what reads as UTF-8 was meant so by a program that did not follow them.
QString fromPlainText(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

// Some programs count the zero byte that ends the text.
void dropTrailingZeros(QByteArray &bytes)
{
    while (bytes.endsWith('\0'))
        bytes.chop(1);
}

} // namespace

X11Property::X11Property(const X11Connection &connection, xcb_window_t window, xcb_atom_t name)
    : m_connection(&connection),
      m_cookie(xcb_get_property(connection.xcb(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty))
{
}

X11Property::X11Property(X11Property &&other) noexcept
    : m_connection(other.m_connection), m_cookie(std::exchange(other.m_cookie, std::nullopt))
{
}

X11Property::~X11Property()
{
    if (m_cookie)
        xcb_discard_reply(m_connection->xcb(), m_cookie->sequence);
}

X11Reply<xcb_get_property_reply_t> X11Property::take()
{
    const auto cookie = std::exchange(m_cookie, std::nullopt);
    if (!cookie)
        return {};
    // The error of a window that has gone must be fetched too, or it would wait in the queue of events.
    xcb_generic_error_t *error = nullptr;
    X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection->xcb(), *cookie, &error));
    std::free(error);
    if (reply && reply->type == XCB_ATOM_NONE)
        reply.reset();
    return reply;
}

std::optional<QString> X11Property::text()
{
    const auto reply = take();
    if (!reply || reply->format != 8)
        return std::nullopt;
    QByteArray bytes = bytesOf(*reply);
    dropTrailingZeros(bytes);
    if (reply->type == m_connection->atom(X11Atom::Utf8String))
        return QString::fromUtf8(bytes);
    if (reply->type == m_connection->atom(X11Atom::CompoundText))
        return fromCompoundText(bytes);
    if (reply->type == XCB_ATOM_STRING)
        return fromPlainText(bytes);
    return std::nullopt;
}

QList<QString> X11Property::texts()
{
    const auto reply = take();
    if (!reply || reply->format != 8)
        return {};
    QByteArray bytes = bytesOf(*reply);
    if (bytes.endsWith('\0'))
        bytes.chop(1);
    QList<QString> parts;
    for (const QByteArray &part : bytes.split('\0'))
        parts.append(fromPlainText(part));
    return parts;
}

std::optional<QList<quint32>> X11Property::cardinalsIfSet()
{
    const auto reply = take();
    if (!reply || reply->format != 32)
        return std::nullopt;
    const auto *values = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return QList<quint32>(values, values + xcb_get_property_value_length(reply.get()) / int(sizeof *values));
}

QList<quint32> X11Property::cardinals()
{
    return cardinalsIfSet().value_or(QList<quint32>());
}

std::optional<quint32> X11Property::cardinal()
{
    const QList<quint32> values = cardinals();
    return values.isEmpty() ? std::nullopt : std::optional(values.first());
}

} // namespace ardeno
