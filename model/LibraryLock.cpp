// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"

#include "model/LibraryFailure.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <thread>

namespace ardeno {

namespace {

constexpr const char *applicationWord = "application";
constexpr const char *commandWord = "command";

QString pathOf(const LibraryLock::Request &request)
{
    return request.root + '/' + request.file;
}

// Close on exec, so that what is started meanwhile does not keep the lock.
FileDescriptor openLock(const LibraryLock::Request &request, int flags)
{
    return OwnFile::open(pathOf(request), flags);
}

bool isNotAllowed(const Failure &failure)
{
    return failure.domain() == "POSIX" &&
           (failure.code() == EACCES || failure.code() == EROFS || failure.code() == EPERM);
}

// No descriptor for a reader who needs no lock.
FileDescriptor openFor(const LibraryLock::Request &request)
{
    const bool isWriter = request.access == LibraryLock::Access::Write;
    if (isWriter)
        AtomicFile::createFolder(request.root);
    try {
        FileDescriptor file = openLock(request, O_RDWR | O_CREAT);
        if (!file && isWriter)
            throw Failure::system(ENOENT, request.file);
        return file;
    } catch (const Failure &failure) {
        if (isWriter && isNotAllowed(failure)) // Whoever reads it knows no lock, but the folder.
            throw Failure(failure.domain(), failure.code(),
                          u"Nothing can be written in “%1”: %2"_qs.arg(request.root,
                                                                       Failure::system(failure.code()).description()));
        if (isWriter || !isNotAllowed(failure))
            throw;
    }
    // Somebody else may be allowed to write there, and then has made the file.
    return openLock(request, O_RDONLY);
}

// Whether the path still names the file: one that was removed or replaced keeps nobody out.
bool isInPlace(const FileDescriptor &file, const LibraryLock::Request &request)
{
    struct stat opened;
    struct stat named;
    return ::fstat(file.number(), &opened) == 0 &&
           ::lstat(QFile::encodeName(pathOf(request)).constData(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

bool isRunning(qint64 process)
{
    return process > 0 && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

void writeHolder(const FileDescriptor &file, LibraryLock::Kind kind)
{
    struct stat status;
    // The lock holds without the name of its holder, too; a second name of somebody's file is not written to.
    if (::fstat(file.number(), &status) != 0 || status.st_nlink != 1 || ::ftruncate(file.number(), 0) != 0)
        return;
    const char *word = kind == LibraryLock::Kind::Application ? applicationWord : commandWord;
    const QByteArray program = QFile::encodeName(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    const QByteArray text = QByteArray::number(qint64{::getpid()}) + ' ' + program + ' ' + word + '\n';
    uninterrupted([&] { return ::pwrite(file.number(), text.constData(), static_cast<size_t>(text.size()), 0); });
}

// "4711 ardeno-window application"; earlier versions wrote no program.
std::optional<LibraryLock::Holder> holderIn(const QByteArray &text)
{
    QList<QByteArray> words = text.simplified().split(' ');
    LibraryLock::Holder holder{.process = words.takeFirst().toLongLong()};
    if (!isRunning(holder.process) || words.isEmpty())
        return std::nullopt;
    const bool isApplication = words.takeLast() == applicationWord;
    holder.kind = isApplication ? LibraryLock::Kind::Application : LibraryLock::Kind::Command;
    holder.name = words.isEmpty() ? QString("ardeno") : QFile::decodeName(words.join(' '));
    return holder;
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
        return LibraryLock(request, FileDescriptor());
    if (uninterrupted([&] { return ::flock(file.number(), LOCK_EX | LOCK_NB); }) == 0) {
        if (!isInPlace(file, request))
            return std::nullopt; // Somebody has taken it away since it was opened.
        writeHolder(file, request.kind);
        return LibraryLock(request, std::move(file));
    }
    if (errno != EWOULDBLOCK)
        throw Failure::system(errno, request.file);
    return std::nullopt;
}

void LibraryLock::ensure()
{
    if (!m_file || isInPlace(m_file, m_request))
        return;
    std::optional<LibraryLock> again = tryLock(m_request);
    if (!again)
        throw inUse(holder(m_request.root));
    m_file = std::move(again->m_file);
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

std::optional<LibraryLock::Holder> LibraryLock::holder(const QString &root, const char *name)
{
    FileDescriptor file;
    try {
        file = openLock({.root = root, .file = name}, O_RDONLY);
    } catch (const Failure &) {
        return std::nullopt; // Whoever needs the lock is told.
    }
    if (!file)
        return std::nullopt;
    // Whoever held it last left the name there. The shared lock is given back at once, with the descriptor.
    if (::flock(file.number(), LOCK_SH | LOCK_NB) == 0)
        return std::nullopt;
    char bytes[512];
    const ssize_t length = uninterrupted([&] { return ::pread(file.number(), bytes, sizeof bytes, 0); });
    return holderIn(QByteArray(bytes, std::max<ssize_t>(length, 0)));
}

LibraryLock::~LibraryLock() = default;

} // namespace ardeno
