// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoFile.h"

#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

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

// No descriptor when there is none, or something else in its place.
FileDescriptor openVideo(const QString &path)
{
    try {
        return OwnFile::open(path, O_RDWR);
    } catch (const Failure &) {
        return FileDescriptor();
    }
}

// A file with a second name somewhere is not only ours to cut.
bool isOurs(const FileDescriptor &file)
{
    struct stat status = {};
    return ::fstat(file.number(), &status) == 0 && status.st_nlink == 1;
}

} // namespace

bool VideoFile::repair(const QString &path)
{
    const FileDescriptor opened = openVideo(path);
    QFile file;
    if (!opened || !file.open(opened.number(), QIODevice::ReadWrite))
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
    if (playable < file.size() && hasPictures && isOurs(opened))
        file.resize(playable);
    return hasPictures;
}

} // namespace ardeno
