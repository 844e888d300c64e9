// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"

#include "model/LibraryFailure.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

namespace ardeno {

namespace {

constexpr const char *applicationWord = "application";
constexpr const char *commandWord = "command";

QByteArray lockPath(const QString &root)
{
    return QFile::encodeName(root + "/lock");
}

FileDescriptor openLock(const QString &root, int flags)
{
    const QByteArray path = lockPath(root);
    // Close on exec, so that what is started meanwhile does not keep the lock.
    return FileDescriptor(uninterrupted([&] { return ::open(path.constData(), flags | O_CLOEXEC, 0600); }));
}

// No descriptor for a reader who needs no lock.
FileDescriptor openFor(const LibraryLock::Request &request)
{
    const bool isWriter = request.access == LibraryLock::Access::Write;
    if (isWriter)
        AtomicFile::createFolder(request.root);
    FileDescriptor file = openLock(request.root, O_RDWR | O_CREAT);
    if (file || isWriter) {
        if (!file)
            throw Failure::system(errno, "lock");
        return file;
    }
    if (errno != ENOENT && errno != EACCES && errno != EROFS && errno != EPERM)
        throw Failure::system(errno, "lock");
    // Somebody else may be allowed to write there, and then has made the file.
    return openLock(request.root, O_RDONLY);
}

// The name of a running process, empty when there is none of that number.
QString processName(qint64 process)
{
    QFile file(u"/proc/%1/comm"_qs.arg(process));
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
}

void writeHolder(const FileDescriptor &file, LibraryLock::Kind kind)
{
    const char *word = kind == LibraryLock::Kind::Application ? applicationWord : commandWord;
    const QByteArray text = QByteArray::number(qint64{::getpid()}) + ' ' + word + '\n';
    // The lock holds without the name of its holder, too.
    if (::ftruncate(file.number(), 0) == 0)
        uninterrupted([&] { return ::pwrite(file.number(), text.constData(), static_cast<size_t>(text.size()), 0); });
}

Failure inUse(const std::optional<LibraryLock::Holder> &holder)
{
    const QString by =
        holder ? u"%1 (process %2)"_qs.arg(holder->name).arg(holder->process) : QString("another program");
    return {"Library", static_cast<int>(LibraryFailure::InUse),
            u"The library is in use by %1, which does not answer."_qs.arg(by)};
}

} // namespace

std::optional<LibraryLock> LibraryLock::tryLock(const Request &request)
{
    FileDescriptor file = openFor(request);
    if (!file)
        return LibraryLock(FileDescriptor());
    if (uninterrupted([&] { return ::flock(file.number(), LOCK_EX | LOCK_NB); }) == 0) {
        writeHolder(file, request.kind);
        return LibraryLock(std::move(file));
    }
    if (errno != EWOULDBLOCK)
        throw Failure::system(errno, "lock");
    return std::nullopt;
}

LibraryLock LibraryLock::waitFor(const Request &request, std::chrono::milliseconds atMost)
{
    constexpr std::chrono::milliseconds pause(10);
    const auto deadline = std::chrono::steady_clock::now() + atMost;
    while (true) {
        if (std::optional<LibraryLock> lock = tryLock(request))
            return std::move(*lock);
        const auto now = std::chrono::steady_clock::now();
        if (now >= deadline)
            throw inUse(holder(request.root));
        std::this_thread::sleep_for(std::min<std::chrono::nanoseconds>(pause, deadline - now));
    }
}

std::optional<LibraryLock::Holder> LibraryLock::holder(const QString &root)
{
    const FileDescriptor file = openLock(root, O_RDONLY);
    if (!file)
        return std::nullopt;
    // Whoever held it last left the name there. The shared lock is given back at once, with the descriptor.
    if (::flock(file.number(), LOCK_SH | LOCK_NB) == 0)
        return std::nullopt;
    char bytes[64];
    const ssize_t length = uninterrupted([&] { return ::pread(file.number(), bytes, sizeof bytes, 0); });
    const QList<QByteArray> words = QByteArray(bytes, std::max<ssize_t>(length, 0)).simplified().split(' ');
    Holder holder{.process = words.first().toLongLong()};
    holder.name = processName(holder.process);
    holder.kind = words.last() == applicationWord ? Kind::Application : Kind::Command;
    if (holder.process <= 0 || holder.name.isEmpty())
        return std::nullopt;
    return holder;
}

LibraryLock::~LibraryLock() = default;

} // namespace ardeno
