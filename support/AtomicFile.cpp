// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AtomicFile.h"

#include "support/Failure.h"
#include "support/FileDescriptor.h"
#include "support/OwnFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <random>
#include <vector>

namespace ardeno {

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr mode_t ownerOnlyFolder = 0700;

FileStamp stampOf(const struct stat &status)
{
    const auto nanoseconds = [](const timespec &time) { return qint64{time.tv_sec} * 1'000'000'000 + time.tv_nsec; };
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = status.st_size,
            .modified = nanoseconds(status.st_mtim),
            .changed = nanoseconds(status.st_ctim)};
}

QString folderOf(const QString &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QString(".") : path.first(std::max<qsizetype>(slash, 1));
}

QString nameOf(const QString &path)
{
    return path.sliced(path.lastIndexOf('/') + 1);
}

// The file that a path means after following the links that stand at its end, whether it exists or not.
QString linkTarget(QString path)
{
    constexpr int mostLinks = 40; // As many as the system follows.
    for (int i = 0; i < mostLinks; ++i) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = ::readlink(QFile::encodeName(path).constData(), target.data(), PATH_MAX);
        if (length < 0)
            return path;
        const QString next = QFile::decodeName(target.first(length));
        path = next.startsWith('/') ? next : folderOf(path) + '/' + next;
    }
    throw Failure::system(ELOOP);
}

bool isSameFile(int descriptor, const QByteArray &path)
{
    struct stat opened;
    struct stat named;
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.constData(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool isRegularFile(int descriptor)
{
    struct stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// Removes what a writer that ended before its time left under a temporary name. A living one holds a lock on it.
void removeLeftover(const QByteArray &path)
{
    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file && isRegularFile(file.number()) && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0 &&
        isSameFile(file.number(), path))
        ::unlink(path.constData());
}

FileDescriptor createExclusively(const QByteArray &path)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    return FileDescriptor(uninterrupted([&] { return ::open(path.constData(), flags, ownerOnly); }));
}

// The new content of a file, beside it until it takes its place; removed when it does not come to that.
class TemporaryFile final {
public:
    explicit TemporaryFile(const QString &target) : m_target(QFile::encodeName(target))
    {
        // A few fixed names, so that what killed writers leave is found by the next and cannot pile up.
        constexpr int names = 8;
        const QString base = folderOf(target) + "/." + nameOf(target) + '.';
        for (int i = 0; i < names && !m_file; ++i)
            open(base + QString::number(i) + ".writing");
        if (!m_file)
            open(base + QString::number(std::random_device()(), 16) + ".writing");
        if (!m_file)
            throw Failure::system(EAGAIN);
    }

    ~TemporaryFile()
    {
        if (m_file)
            ::unlink(m_path.constData());
    }

    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    int descriptor() const { return m_file.number(); }

    // Puts it in the place of the target; both are on disk then.
    AtomicFile::Written replaceTarget(const std::function<void()> &check)
    {
        synchronise();
        if (check)
            check();
        rename();
        return finish();
    }

    // The same where nothing may be replaced.
    AtomicFile::Written becomeNewTarget()
    {
        synchronise();
        if (::link(m_path.constData(), m_target.constData()) == 0 || isTarget()) {
            ::unlink(m_path.constData());
        } else {
            // Some file systems have no second names for a file.
            const int error = errno;
            struct stat existing;
            if ((error != EPERM && error != ENOTSUP) || ::lstat(m_target.constData(), &existing) == 0)
                throw Failure::system(error == EPERM || error == ENOTSUP ? EEXIST : error);
            rename();
        }
        return finish();
    }

private:
    void open(const QString &name)
    {
        m_path = QFile::encodeName(name);
        errno = 0;
        m_file = createExclusively(m_path);
        if (!m_file && errno == EEXIST) {
            removeLeftover(m_path);
            errno = 0;
            m_file = createExclusively(m_path);
        }
        if (!m_file && errno != EEXIST)
            throw Failure::system(errno);
        // Another writer may take the file for a leftover before it is locked; then it is no longer ours.
        const bool isTaken = m_file && ::flock(m_file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (m_file && (isTaken || !isSameFile(m_file.number(), m_path)))
            m_file.close();
    }

    void synchronise()
    {
        if (uninterrupted([&] { return ::fdatasync(descriptor()); }) != 0)
            throw Failure::system(errno);
    }

    // Over a network a call can report a failure though it has been carried out.
    bool isTarget() const
    {
        const int error = errno;
        const bool isDone = isSameFile(descriptor(), m_target);
        errno = error;
        return isDone;
    }

    void rename()
    {
        if (::rename(m_path.constData(), m_target.constData()) != 0 && !isTarget())
            throw Failure::system(errno);
    }

    // The change is made: whatever cannot be done now does not undo it.
    AtomicFile::Written finish()
    {
        const FileDescriptor file = std::move(m_file); // From here on there is nothing to remove.
        const qsizetype slash = m_target.lastIndexOf('/');
        const QByteArray folder = slash < 0 ? QByteArray(".") : m_target.first(std::max<qsizetype>(slash, 1));
        AtomicFile::Written written{.isDurable = isSynchronised(folder)};
        struct stat status;
        if (uninterrupted([&] { return ::fstat(file.number(), &status); }) == 0)
            written.stamp = stampOf(status);
        return written;
    }

    static bool isSynchronised(const QByteArray &path)
    {
        constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
        const FileDescriptor folder(uninterrupted([&] { return ::open(path.constData(), flags); }));
        const bool isDone = folder && uninterrupted([&] { return ::fsync(folder.number()); }) == 0;
        return isDone || errno == EINVAL || errno == EACCES; // Not every folder can be opened or synchronised.
    }

    QByteArray m_target;
    QByteArray m_path;
    FileDescriptor m_file;
};

void writeVectors(int descriptor, std::span<iovec> vectors)
{
    while (!vectors.empty()) {
        const int count = static_cast<int>(std::min<size_t>(vectors.size(), IOV_MAX));
        const ssize_t written = uninterrupted([&] { return ::writev(descriptor, vectors.data(), count); });
        if (written < 0)
            throw Failure::system(errno);
        auto rest = static_cast<size_t>(written);
        while (!vectors.empty() && rest >= vectors.front().iov_len) {
            rest -= vectors.front().iov_len;
            vectors = vectors.subspan(1);
        }
        if (!vectors.empty()) {
            vectors.front().iov_base = static_cast<char *>(vectors.front().iov_base) + rest;
            vectors.front().iov_len -= rest;
        }
    }
}

void writePieces(int descriptor, std::span<const QByteArrayView> pieces)
{
    std::vector<iovec> vectors;
    vectors.reserve(pieces.size());
    for (const QByteArrayView piece : pieces) {
        if (!piece.isEmpty())
            vectors.push_back({const_cast<char *>(piece.data()), static_cast<size_t>(piece.size())});
    }
    writeVectors(descriptor, vectors);
}

void copyRange(int source, int target, off_t begin, off_t end)
{
    std::vector<char> buffer(size_t{1} << 20);
    while (begin < end) {
        const auto wanted = static_cast<size_t>(std::min<off_t>(end - begin, static_cast<off_t>(buffer.size())));
        const ssize_t got = uninterrupted([&] { return ::pread(source, buffer.data(), wanted, begin); });
        if (got < 0)
            throw Failure::system(errno);
        if (got == 0)
            return;
        for (ssize_t done = 0; done < got;) {
            const auto rest = static_cast<size_t>(got - done);
            const auto put = [&] { return ::pwrite(target, buffer.data() + done, rest, begin + done); };
            const ssize_t written = uninterrupted(put);
            if (written < 0)
                throw Failure::system(errno);
            done += written;
        }
        begin += got;
    }
}

void copySparsely(int source, int target)
{
    const off_t size = FileStamp::ofDescriptor(source).size;
    if (::ftruncate(target, size) != 0)
        throw Failure::system(errno);
    for (off_t position = 0; position < size;) {
        off_t data = ::lseek(source, position, SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            return; // Nothing but a hole up to the end.
        off_t end = data < 0 ? size : ::lseek(source, data, SEEK_HOLE);
        data = std::max(data, position); // Where holes are not known, all is data.
        end = end < 0 ? size : end;
        copyRange(source, target, data, end);
        position = end;
    }
}

} // namespace

FileStamp FileStamp::ofDescriptor(int descriptor)
{
    struct stat status;
    if (uninterrupted([&] { return ::fstat(descriptor, &status); }) != 0)
        throw Failure::system(errno);
    return stampOf(status);
}

std::optional<FileStamp> FileStamp::ofFile(const QString &path)
{
    struct stat status;
    if (uninterrupted([&] { return ::stat(QFile::encodeName(path).constData(), &status); }) == 0)
        return stampOf(status);
    if (errno != ENOENT)
        throw Failure::system(errno, nameOf(path));
    return std::nullopt;
}

AtomicFile::Written AtomicFile::write(const QString &path, std::span<const QByteArrayView> pieces,
                                      const std::function<void()> &check)
{
    TemporaryFile file(linkTarget(path));
    writePieces(file.descriptor(), pieces);
    return file.replaceTarget(check);
}

AtomicFile::Written AtomicFile::write(const QString &path, QByteArrayView bytes)
{
    return write(path, std::span(&bytes, 1));
}

AtomicFile::Written AtomicFile::replace(const QString &path, QByteArrayView bytes)
{
    TemporaryFile file(path);
    writePieces(file.descriptor(), std::span(&bytes, 1));
    return file.replaceTarget({});
}

AtomicFile::Written AtomicFile::writeNew(const QString &path,
                                         const std::function<void(const std::function<void(QByteArrayView)> &)> &fill)
{
    TemporaryFile file(path);
    fill([&](QByteArrayView bytes) { writePieces(file.descriptor(), std::span(&bytes, 1)); });
    return file.becomeNewTarget();
}

AtomicFile::Written AtomicFile::copyToNew(const QString &source, const QString &target)
{
    const FileDescriptor original = OwnFile::open(source, O_RDONLY, OwnFile::Links::Followed);
    if (!original)
        throw Failure::system(ENOENT);
    TemporaryFile copy(target);
    copySparsely(original.number(), copy.descriptor());
    return copy.becomeNewTarget();
}

void AtomicFile::createFolder(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), ownerOnlyFolder) == 0)
        return;
    if (errno == ENOENT && folderOf(path) != path) {
        createFolder(folderOf(path));
        if (::mkdir(name.constData(), ownerOnlyFolder) == 0)
            return;
    }
    struct stat status;
    const int error = errno;
    if (error != EEXIST || ::stat(name.constData(), &status) != 0)
        throw Failure::system(error, path);
    if (!S_ISDIR(status.st_mode))
        throw Failure::system(ENOTDIR, path);
}

void AtomicFile::removeLeftovers(const QString &folder)
{
    static const QRegularExpression form("^\\..+\\.[0-9a-f]+\\.writing$");
    for (const QString &name : QDir(folder).entryList({".*.writing"}, QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        if (form.match(name).hasMatch())
            removeLeftover(QFile::encodeName(folder + '/' + name));
    }
}

} // namespace ardeno
