// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoWriter.h"

#include "support/Failure.h"
#include "support/Module.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ardeno {

namespace {

constexpr qint64 longestWait = 1000;  // Milliseconds until a frame is in the file.
constexpr qint64 syncInterval = 5000; // Milliseconds that a power cut may cost.

FileDescriptor createFile(const QString &path)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW;
    const QByteArray name = QFile::encodeName(path);
    FileDescriptor file(uninterrupted([&] { return ::open(name.constData(), flags, 0600); }));
    if (!file)
        throw Failure::system(errno);
    return file;
}

bool isSystemError(int result)
{
    constexpr int mostErrors = 4096;
    return result < 0 && result > -mostErrors;
}

Failure encoderFailure(int result)
{
    if (isSystemError(result))
        return Failure::system(-result);
    return {"Video", result, "The video could not be encoded."};
}

MakeVideoEncoder encoderMaker()
{
    return reinterpret_cast<MakeVideoEncoder>(Module::function(videoModuleName, makeVideoEncoderName));
}

} // namespace

QString VideoWriter::reasonUnavailable()
{
    try {
        encoderMaker();
        return {};
    } catch (const Failure &failure) {
        return "Videos cannot be written: " + failure.description();
    }
}

VideoWriter::VideoWriter(const QString &path, QSize size) : m_path(path)
{
    const MakeVideoEncoder make = encoderMaker();
    m_file = createFile(path);
    int error = 0;
    m_encoder.reset(make({size.width(), size.height()}, {this, writeBytes}, &error));
    require(error);
    m_complete = m_written;
}

VideoWriter::~VideoWriter() = default;

int VideoWriter::writeBytes(void *writer, const unsigned char *bytes, int size)
{
    auto &self = *static_cast<VideoWriter *>(writer);
    while (size > 0) {
        const ssize_t written = uninterrupted([&] { return ::write(self.m_file.number(), bytes, size_t(size)); });
        if (written < 0)
            return self.m_error = errno;
        self.m_written += written;
        bytes += written;
        size -= int(written);
    }
    return 0;
}

// After a failure the file ends with its last whole fragment.
void VideoWriter::require(int result)
{
    if (result >= 0 && m_error == 0)
        return;
    const Failure failure = m_error != 0 ? Failure::system(m_error) : encoderFailure(result);
    uninterrupted([&] { return ::ftruncate(m_file.number(), m_complete); });
    throw Failure(failure);
}

void VideoWriter::requireFile() const
{
    struct stat opened;
    struct stat named;
    if (::fstat(m_file.number(), &opened) != 0 || ::lstat(QFile::encodeName(m_path).constData(), &named) != 0)
        throw Failure::system(errno);
    if (opened.st_dev != named.st_dev || opened.st_ino != named.st_ino)
        throw Failure::system(ENOENT);
}

void VideoWriter::write(const char *pixels, qint64 milliseconds)
{
    require(m_encoder->write(reinterpret_cast<const unsigned char *>(pixels), milliseconds));
    if (!m_waitingSince)
        m_waitingSince = milliseconds;
}

void VideoWriter::keepUp(qint64 milliseconds)
{
    requireFile();
    if (m_waitingSince && milliseconds - *m_waitingSince >= longestWait)
        flush(milliseconds);
}

void VideoWriter::flush(qint64 milliseconds)
{
    require(m_encoder->flush());
    m_complete = m_written;
    m_waitingSince.reset();
    if (milliseconds - m_lastSync < syncInterval)
        return;
    m_lastSync = milliseconds;
    if (uninterrupted([&] { return ::fdatasync(m_file.number()); }) != 0)
        throw Failure::system(errno);
}

void VideoWriter::finish(qint64 milliseconds)
{
    require(m_encoder->finish(milliseconds));
    if (uninterrupted([&] { return ::fsync(m_file.number()); }) != 0)
        throw Failure::system(errno);
    requireFile();
}

} // namespace ardeno
