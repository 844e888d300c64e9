// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/VideoModule.h"
#include "support/FileDescriptor.h"

#include <QSize>
#include <QString>

#include <memory>
#include <optional>

namespace ardeno {

// Writes a video that can be played up to its last second whatever happens to the program, the disk or the machine. The
// file is readable for the user alone. Times are milliseconds since the first frame; all functions may be called on any
// thread, one at a time, and throw Failure with the system's own words where it has some.
class VideoWriter final {
public:
    // Why no video can be written with this installation; empty when it can.
    static QString reasonUnavailable();

    // Creates the file. Both sides of the size are even.
    VideoWriter(const QString &path, QSize size);
    VideoWriter(const VideoWriter &) = delete;
    VideoWriter &operator=(const VideoWriter &) = delete;
    ~VideoWriter();

    // Pixels of 32 bits in memory order blue, green, red, unused, in rows without gaps.
    void write(const char *pixels, qint64 milliseconds);
    // Puts all frames into the file.
    void flush(qint64 milliseconds);
    // Puts frames that have waited for a second into the file. Throws also when the file is no longer where it was
    // made.
    void keepUp(qint64 milliseconds);
    // Completes the file, which lasts until then; it is on disk when the function returns.
    void finish(qint64 milliseconds);

private:
    static int writeBytes(void *writer, const unsigned char *bytes, int size);

    void require(int result);
    void requireFile() const;

    QString m_path;
    FileDescriptor m_file;
    int m_error = 0;                           // Of the system, from the last write.
    qint64 m_written = 0;                      // Bytes.
    qint64 m_complete = 0;                     // Bytes up to the end of the last whole fragment.
    qint64 m_lastSync = 0;                     // Milliseconds.
    std::optional<qint64> m_waitingSince = {}; // The time of the oldest frame that is not in the file.
    std::unique_ptr<VideoEncoder> m_encoder = {};
};

} // namespace ardeno
