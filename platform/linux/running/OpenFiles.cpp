// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/OpenFiles.h"

#include "platform/linux/files/PathEntry.h"
#include "platform/linux/files/PathText.h"
#include "platform/linux/running/ProcessFacts.h"

#include <QByteArray>
#include <QFile>

#include <chrono>

#include <sys/stat.h>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds timeForDisk(300);

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
    const auto path = PathText::fromBytes(target);
    const PathEntry there = path ? PathEntry::of(*path) : PathEntry();
    const bool isFile = there.facts.kind == PathFacts::Kind::File;
    if (!isFile && there.facts.kind != PathFacts::Kind::Folder)
        return;
    const auto isOpen = [link, there] {
        struct stat open = {};
        return ::stat(link.constData(), &open) == 0 && open.st_ino == there.inode && open.st_dev == there.device;
    };
    if (SlowMounts::ofMachine().ask(target, isOpen, timeForDisk).value_or(false))
        (isFile ? found->files : found->folders).append(*path);
}

} // namespace

OpenFiles OpenFiles::of(qint64 processID)
{
    OpenFiles found;
    const ProcessFacts process(static_cast<qint32>(processID));
    const QByteArray folder = QFile::encodeName(process.folder());
    const QMap<int, QByteArray> descriptors = process.descriptors().value_or(QMap<int, QByteArray>());
    for (auto descriptor = descriptors.begin(); descriptor != descriptors.end(); ++descriptor) {
        const QByteArray number = QByteArray::number(descriptor.key());
        const QByteArray &target = descriptor.value();
        if (target == "anon_inode:inotify")
            readWatches(folder + "/fdinfo/" + number, &found);
        else if (target == "/dev/ptmx" || target == "/dev/pts/ptmx")
            found.runsTerminal = true;
        else if (target.startsWith('/') && !target.startsWith("/dev/") && !target.startsWith("/memfd:"))
            readFile(folder + "/fd/" + number, target, &found);
    }
    return found;
}

bool OpenFiles::holds(const QString &path) const
{
    if (files.contains(path))
        return true;
    const PathEntry entry = watchesFiles ? PathEntry::of(path) : PathEntry();
    return entry.facts.kind == PathFacts::Kind::File && watched.contains(entry.inode);
}

} // namespace ardeno
