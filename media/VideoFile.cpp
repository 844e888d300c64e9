// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoFile.h"

#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <cerrno>
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

// Absent when there is none that is whole. Throws Failure.
std::optional<Box> wholeBoxAt(const FileDescriptor &file, qint64 fileSize, qint64 position)
{
    constexpr qint64 headerLength = 8;
    constexpr quint32 hasLongLength = 1;
    QByteArray header(2 * headerLength, '\0');
    const ssize_t got =
        uninterrupted([&] { return ::pread(file.number(), header.data(), size_t(header.size()), position); });
    if (got < 0)
        throw Failure::system(errno);
    header.truncate(got);
    if (header.size() < headerLength)
        return std::nullopt;
    qint64 length = qFromBigEndian<quint32>(header.constData());
    if (length == hasLongLength && header.size() == 2 * headerLength)
        length = qFromBigEndian<qint64>(header.constData() + headerLength);
    if (length < headerLength || length > fileSize - position)
        return std::nullopt;
    return Box{header.mid(4, 4), position + length};
}

bool isFile(const QString &path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) == 0)
        return S_ISREG(status.st_mode);
    if (errno != ENOENT)
        throw Failure::system(errno);
    return false;
}

struct stat statusOf(const FileDescriptor &file)
{
    struct stat status = {};
    if (::fstat(file.number(), &status) != 0)
        throw Failure::system(errno);
    return status;
}

} // namespace

bool VideoFile::repair(const QString &path)
{
    const FileDescriptor file = isFile(path) ? OwnFile::open(path, O_RDWR) : FileDescriptor();
    if (!file)
        return false;
    const struct stat status = statusOf(file);
    qint64 position = 0;
    qint64 playable = 0; // The end of the last fragment with its pictures, or of what belongs to the whole file.
    bool hasPictures = false;
    bool isInFragment = false;
    while (const std::optional<Box> box = wholeBoxAt(file, status.st_size, position)) {
        position = box->end;
        isInFragment = box->type == "moof" || (isInFragment && box->type != "mdat");
        hasPictures = hasPictures || box->type == "mdat";
        if (!isInFragment)
            playable = position;
    }
    const bool isOurs = status.st_nlink == 1; // One with a second name somewhere is not only ours to cut.
    if (playable < status.st_size && hasPictures && isOurs && ::ftruncate(file.number(), playable) != 0)
        throw Failure::system(errno);
    return hasPictures;
}

} // namespace ardeno
