// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/PathText.h"

#include "platform/linux/files/PathEntry.h"

#include <QDir>
#include <QStringDecoder>
#include <QSysInfo>

namespace ardeno {

namespace {

int hexadecimal(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Absent when an escape is broken or stands for a zero byte.
std::optional<QByteArray> unescaped(const QByteArray &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes.append(text[i]);
            continue;
        }
        const int high = i + 2 < text.size() ? hexadecimal(text[i + 1]) : -1;
        const int low = i + 2 < text.size() ? hexadecimal(text[i + 2]) : -1;
        if (high < 0 || low < 0 || high + low == 0)
            return std::nullopt;
        bytes.append(static_cast<char>(high * 16 + low));
        i += 2;
    }
    return bytes;
}

} // namespace

std::optional<QString> PathText::fromBytes(const QByteArray &path)
{
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(path);
    return decoder.hasError() ? std::nullopt : std::optional(QDir::cleanPath(text));
}

std::optional<QString> PathText::fromAddress(const QByteArray &address)
{
    constexpr qsizetype schemeLength = 7;
    if (address.size() <= schemeLength || qstrnicmp(address.constData(), "file://", schemeLength) != 0)
        return std::nullopt;
    const qsizetype slash = address.indexOf('/', schemeLength);
    const QByteArray host = address.mid(schemeLength, slash - schemeLength);
    if (slash < 0 || !(host.isEmpty() || host == "localhost" || host == QSysInfo::machineHostName().toUtf8()))
        return std::nullopt;
    QByteArray path = address.mid(slash);
    // What follows is no part of the file's name: there these characters are escaped.
    for (const char end : {'#', '?'}) {
        if (const qsizetype position = path.indexOf(end); position >= 0)
            path.truncate(position);
    }
    const auto bytes = unescaped(path);
    return bytes ? fromBytes(*bytes) : std::nullopt;
}

bool PathText::isFile(const QString &path)
{
    return PathEntry::of(path).facts.kind == PathFacts::Kind::File;
}

bool PathText::isFolder(const QString &path)
{
    return PathEntry::of(path).facts.kind == PathFacts::Kind::Folder;
}

QString PathText::baseName(const QString &path)
{
    return path == "/" ? path : path.mid(path.lastIndexOf('/') + 1);
}

} // namespace ardeno
