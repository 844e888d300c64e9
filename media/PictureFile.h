// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Picture.h"
#include "media/PngReader.h"
#include "support/AtomicFile.h"
#include "support/FileDescriptor.h"

#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace ardeno {

// A picture among the media of a checkpoint, open for reading. Memory grows with what is asked for, not with the
// picture. Each object answers one question, on any thread.
class PictureFile final {
public:
    // Pictures of more bytes are not shown as a whole; our own have at most 8192 × 8192 pixels.
    static constexpr qint64 mostBytes = 512 << 20;

    // Absent when there is none. Throws Failure when it is no regular file or cannot be opened, and when it or its
    // folder is a link; never waits for a pipe.
    static std::optional<PictureFile> opened(const QString &path);

    FileStamp stamp() const { return FileStamp::ofDescriptor(m_file.number()); }

    // The following throw Failure when it is no picture, damaged or too large to be read.

    // Of the whole picture.
    QSize size();
    // As large as it is; kinds that the program does not write itself are made smaller where an import does so.
    Picture whole();
    // The picture with at most this many pixels on the longer side, never enlarged. Absent when isWanted, which is
    // asked every now and then, turns false.
    std::optional<Picture> shrunken(int longestSide, const std::function<bool()> &isWanted);

private:
    explicit PictureFile(FileDescriptor file) : m_file(std::move(file)) {}

    std::optional<PngReader> ownKind() const;

    FileDescriptor m_file;
};

} // namespace ardeno
