// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoFile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <optional>

namespace ardeno {

namespace {

// A part of the file: its type and where the next begins.
struct Box {
    QByteArray type = {};
    qint64 end = 0;
};

// Absent when there is none that is whole.
std::optional<Box> wholeBoxAt(QFile &file, qint64 position)
{
    constexpr qint64 headerLength = 8;
    constexpr quint32 hasLongLength = 1;
    if (!file.seek(position))
        return std::nullopt;
    QByteArray header = file.read(2 * headerLength);
    if (header.size() < headerLength)
        return std::nullopt;
    qint64 length = qFromBigEndian<quint32>(header.constData());
    if (length == hasLongLength && header.size() == 2 * headerLength)
        length = qFromBigEndian<qint64>(header.constData() + headerLength);
    if (length < headerLength || length > file.size() - position)
        return std::nullopt;
    return Box{header.mid(4, 4), position + length};
}

} // namespace

bool VideoFile::repair(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false;
    qint64 position = 0;
    qint64 playable = 0; // The end of the last fragment with its pictures, or of what belongs to the whole file.
    bool hasPictures = false;
    bool isInFragment = false;
    while (const std::optional<Box> box = wholeBoxAt(file, position)) {
        position = box->end;
        isInFragment = box->type == "moof" || (isInFragment && box->type != "mdat");
        hasPictures = hasPictures || box->type == "mdat";
        if (!isInFragment)
            playable = position;
    }
    if (playable < file.size() && hasPictures)
        file.resize(playable);
    return hasPictures;
}

} // namespace ardeno
