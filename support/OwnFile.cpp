// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/OwnFile.h"

#include "support/Failure.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace ardeno {

namespace {

constexpr mode_t ownFileMode = 0600;

QString ownFileName(const QString &path)
{
    return path.sliced(path.lastIndexOf('/') + 1);
}

Failure notAFile(const QString &path)
{
    return {"POSIX", EINVAL, u"“%1” is not a file."_qs.arg(ownFileName(path))};
}

Failure isALink(const QString &path)
{
    return {"POSIX", ELOOP, u"“%1” is a link, which is not followed here."_qs.arg(ownFileName(path))};
}

// What open(2) said of a path that it did not open.
Failure openingFailed(int error, const QString &path, OwnFile::Links links)
{
    if (error == ELOOP && links == OwnFile::Links::Refused)
        return isALink(path);
    // A folder that shall be written, a pipe without a reader, a socket.
    if (error == EISDIR || error == ENXIO)
        return notAFile(path);
    return Failure::system(error, ownFileName(path));
}

} // namespace

FileDescriptor OwnFile::open(const QString &path, int flags, Links links)
{
    flags |= O_CLOEXEC | O_NONBLOCK | O_NOCTTY | (links == Links::Refused ? O_NOFOLLOW : 0);
    FileDescriptor file(uninterrupted([&] { return ::open(QFile::encodeName(path).constData(), flags, ownFileMode); }));
    if (!file && errno == ENOENT)
        return file;
    if (!file)
        throw openingFailed(errno, path, links);
    struct stat status;
    if (uninterrupted([&] { return ::fstat(file.number(), &status); }) != 0)
        throw Failure::system(errno, ownFileName(path));
    if (!S_ISREG(status.st_mode))
        throw notAFile(path);
    return file;
}

std::optional<QByteArray> OwnFile::read(const QString &path, qint64 largest, Links links)
{
    const FileDescriptor file = open(path, O_RDONLY, links);
    if (!file)
        return std::nullopt;
    QByteArray bytes;
    constexpr qsizetype step = 64 * 1024;
    while (true) {
        const qsizetype done = bytes.size();
        bytes.resize(done + step);
        const ssize_t got = uninterrupted([&] { return ::read(file.number(), bytes.data() + done, step); });
        if (got < 0)
            throw Failure::system(errno, ownFileName(path));
        bytes.resize(done + got);
        if (bytes.size() > largest)
            throw Failure::system(EFBIG, ownFileName(path));
        if (got == 0)
            return bytes;
    }
}

} // namespace ardeno
