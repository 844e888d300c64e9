// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PictureFile.h"

#include "media/ImageImport.h"
#include "media/PictureShrinking.h"
#include "support/Failure.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace ardeno {

std::optional<PictureFile> PictureFile::opened(const QString &path)
{
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK; // Not to wait for a pipe in the place of a file.
    FileDescriptor file(uninterrupted([&] { return ::open(QFile::encodeName(path).constData(), flags); }));
    if (!file && (errno == ENOENT || errno == ENOTDIR))
        return std::nullopt;
    struct stat status = {};
    if (!file || ::fstat(file.number(), &status) != 0)
        throw Failure::system(errno);
    if (!S_ISREG(status.st_mode))
        throw Failure::system(EINVAL);
    return PictureFile(path, std::move(file));
}

std::optional<Picture> PictureFile::shrunken(int longestSide, const std::function<bool()> &isWanted)
{
    std::optional<PngReader> reader = PngReader::opened(std::move(m_file));
    return reader ? ardeno::shrunken(*reader, longestSide, isWanted)
                  : ImageImport::thumbnail(m_path, longestSide, isWanted);
}

} // namespace ardeno
