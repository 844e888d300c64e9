// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PictureFile.h"

#include "media/ImageImport.h"
#include "media/PictureShrinking.h"
#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace ardeno {

namespace {

bool isLink(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

} // namespace

std::optional<PictureFile> PictureFile::opened(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (isLink(folder))
        throw Failure::system(ENOTDIR, QFileInfo(folder).fileName());
    FileDescriptor file = OwnFile::open(path, O_RDONLY);
    return file ? std::optional(PictureFile(std::move(file))) : std::nullopt;
}

std::optional<PngReader> PictureFile::ownKind() const
{
    FileDescriptor same(::fcntl(m_file.number(), F_DUPFD_CLOEXEC, 0));
    if (!same)
        throw Failure::system(errno);
    return PngReader::opened(std::move(same));
}

QSize PictureFile::size()
{
    const std::optional<PngReader> reader = ownKind();
    return reader ? reader->size() : ImageImport::sizeOf(m_file, ImageImport::longestSide);
}

Picture PictureFile::whole()
{
    std::optional<PngReader> reader = ownKind();
    if (!reader)
        return ImageImport::thumbnail(m_file, ImageImport::longestSide, [] { return true; });
    const QSize size = reader->size();
    const qsizetype stride = qsizetype(size.width()) * 4;
    if (stride * size.height() > mostBytes)
        throw Failure::system(EFBIG);
    Picture picture{size, QByteArray(stride * size.height(), Qt::Uninitialized)};
    for (int y = 0; y < size.height(); ++y)
        std::memcpy(picture.pixels.data() + y * stride, reader->nextRow(), size_t(stride));
    return picture;
}

std::optional<Picture> PictureFile::shrunken(int longestSide, const std::function<bool()> &isWanted)
{
    std::optional<PngReader> reader = ownKind();
    return reader ? ardeno::shrunken(*reader, longestSide, isWanted)
                  : ImageImport::thumbnail(m_file, longestSide, isWanted);
}

} // namespace ardeno
