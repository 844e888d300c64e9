// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/files/PathText.h"

#include "platform/linux/files/PathEntry.h"

#include <QDir>
#include <QStringDecoder>
#include <QSysInfo>

#include <glib.h>

#include <algorithm>
#include <memory>

namespace ardeno {

namespace {

struct FreeText {
    void operator()(char *text) const { g_free(text); }
};

using OwnedText = std::unique_ptr<char, FreeText>;

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
    if (!address.toLower().startsWith("file://"))
        return std::nullopt;
    // What follows one of these is no part of the file's name: there they are escaped.
    const auto end = std::find_if(address.begin(), address.end(), [](char each) { return each == '#' || each == '?'; });
    const QByteArray file = address.first(end - address.begin());
    char *host = nullptr;
    const OwnedText path(g_filename_from_uri(file.constData(), &host, nullptr));
    const QByteArray hostName = OwnedText(host).get();
    if (!path || !(hostName.isEmpty() || hostName == "localhost" || hostName == QSysInfo::machineHostName().toUtf8()))
        return std::nullopt;
    return fromBytes(path.get());
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
