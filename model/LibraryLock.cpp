// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"

#include "support/AtomicFile.h"
#include "support/Failure.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>

#include <array>

namespace ardeno {

namespace {

FileDescriptor open(const QString &root)
{
    const QByteArray path = QFile::encodeName(root + u"/lock"_qs);
    return FileDescriptor(uninterrupted([&] { return ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600); }));
}

QString nameOf(qint64 process)
{
    QFile file(u"/proc/%1/comm"_qs.arg(process));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

// What the holder wrote about itself: "1234 command".
Failure heldByAnother(int descriptor)
{
    std::array<char, 64> text{};
    const auto length = uninterrupted([&] { return ::pread(descriptor, text.data(), text.size(), 0); });
    const QByteArrayView written(text.data(), std::max<qsizetype>(length, 0));
    const qint64 process = written.first(std::max<qsizetype>(written.indexOf(' '), 0)).toLongLong();
    const QString name = nameOf(process);
    const QString who =
        name.isEmpty() ? u"another process"_qs : u"%1 (process %2)"_qs.arg(name, QString::number(process));
    return {"Library", EWOULDBLOCK, u"The library is in use by %1, which does not answer."_qs.arg(who)};
}

// Throws Failure when the library is not given back in time.
void await(int descriptor, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds pause(2); // A save takes about a tenth of a second.
    const QDeadlineTimer deadline(patience);
    while (uninterrupted([&] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) != 0) {
        if (errno != EWOULDBLOCK)
            throw Failure::system(errno);
        if (deadline.hasExpired())
            throw heldByAnother(descriptor);
        QThread::usleep(std::chrono::microseconds(pause).count());
    }
}

// Tells others who holds the library; that it could not be written is no reason not to go on.
void sign(int descriptor, LibraryLock::Holder holder)
{
    const QByteArray kind = holder == LibraryLock::Holder::Application ? " application\n" : " command\n";
    const QByteArray text = QByteArray::number(static_cast<qint64>(::getpid())) + kind;
    if (::ftruncate(descriptor, 0) == 0)
        (void)!::pwrite(descriptor, text.constData(), static_cast<size_t>(text.size()), 0);
}

} // namespace

LibraryLock LibraryLock::forWriting(const QString &root, Holder holder, std::chrono::milliseconds patience)
{
    AtomicFile::createFolder(root);
    FileDescriptor file = open(root);
    if (!file)
        throw Failure::system(errno, root + u"/lock"_qs);
    await(file.number(), patience);
    sign(file.number(), holder);
    return LibraryLock(std::move(file));
}

LibraryLock LibraryLock::forReading(const QString &root, std::chrono::milliseconds patience)
{
    FileDescriptor file = open(root);
    if (file) {
        await(file.number(), patience);
        sign(file.number(), Holder::Command);
    }
    return LibraryLock(std::move(file));
}

} // namespace ardeno
