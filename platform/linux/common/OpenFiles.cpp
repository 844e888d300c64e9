// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/OpenFiles.h"

#include "platform/linux/common/PathText.h"

#include <QByteArray>
#include <QFile>

#include <array>
#include <climits>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace ardeno {

namespace {

QByteArray linkTarget(const QByteArray &link)
{
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = ::readlink(link.constData(), buffer.data(), buffer.size());
    return length > 0 ? QByteArray(buffer.data(), length) : QByteArray();
}

// "inotify wd:1 ino:9e7e sdev:800013 mask:…", one line for each watch.
void readWatches(const QByteArray &path, OpenFiles *found)
{
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::ReadOnly))
        return;
    constexpr int hexadecimal = 16;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const qsizetype start = line.indexOf(" ino:");
        if (!line.startsWith("inotify ") || start < 0)
            continue;
        const qsizetype begin = start + 5;
        found->watched.insert(line.mid(begin, line.indexOf(' ', begin) - begin).toULongLong(nullptr, hexadecimal));
        found->watchesFiles = true;
    }
}

// The path in a link of /proc is a thing of the past when the file was deleted, moved or replaced.
void readFile(const QByteArray &link, const QByteArray &target, OpenFiles *found)
{
    struct stat open = {};
    struct stat there = {};
    if (::stat(link.constData(), &open) != 0 || !(S_ISREG(open.st_mode) || S_ISDIR(open.st_mode)))
        return;
    const auto path = PathText::fromBytes(target);
    const bool isThere =
        path && ::stat(target.constData(), &there) == 0 && there.st_ino == open.st_ino && there.st_dev == open.st_dev;
    if (isThere)
        (S_ISREG(open.st_mode) ? found->files : found->folders).append(*path);
}

} // namespace

OpenFiles OpenFiles::of(qint64 processID)
{
    constexpr int most = 4096;
    OpenFiles found;
    const QByteArray process = "/proc/" + QByteArray::number(processID);
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(::opendir((process + "/fd").constData()), ::closedir);
    int count = 0;
    for (const dirent *entry = nullptr; folder && count < most && (entry = ::readdir(folder.get())); ++count) {
        const QByteArray link = process + "/fd/" + entry->d_name;
        const QByteArray target = linkTarget(link);
        if (target == "anon_inode:inotify")
            readWatches(process + "/fdinfo/" + entry->d_name, &found);
        else if (target == "/dev/ptmx" || target == "/dev/pts/ptmx")
            found.runsTerminal = true;
        else if (target.startsWith('/') && !target.startsWith("/dev/") && !target.startsWith("/memfd:"))
            readFile(link, target, &found);
    }
    return found;
}

} // namespace ardeno
