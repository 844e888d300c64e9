// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"
#include "support/AtomicFile.h"
#include "support/FileDescriptor.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace ardeno {

// A file that may be a picture, open for reading. Memory grows with what is asked for, not with the picture. Any
// thread.
class PictureFile final {
public:
    // Absent when there is none. Throws Failure when it is no regular file or cannot be opened; never waits for a pipe.
    static std::optional<PictureFile> opened(const QString &path);

    FileStamp stamp() const { return FileStamp::ofDescriptor(m_file.number()); }

    // The picture with at most this many pixels on the longer side, never enlarged; once. Absent when isWanted, which
    // is asked every now and then, turns false. Throws Failure when it is no picture, damaged or too large to be read.
    std::optional<Picture> shrunken(int longestSide, const std::function<bool()> &isWanted);

private:
    PictureFile(QString path, FileDescriptor file) : m_path(std::move(path)), m_file(std::move(file)) {}

    QString m_path;
    FileDescriptor m_file;
};

} // namespace ardeno
