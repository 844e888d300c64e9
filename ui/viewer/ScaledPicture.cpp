// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScaledPicture.h"

#include "media/PngReader.h"
#include "support/Failure.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>

#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace ardeno {

namespace {

constexpr int smallestHalf = 256; // Pixels of the longer side.

bool isShowable(const QSize &size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() * 4 <= PictureReading::mostMegabytes << 20;
}

// The usual kind of file, read with the program's own reader. Absent when it is another kind. Throws Failure.
std::optional<QImage> readScreenshot(const QString &path)
{
    FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return QImage(); // What is no file is not opened by anyone else either.
    std::optional<PngReader> reader = PngReader::opened(std::move(file));
    if (!reader)
        return std::nullopt;
    if (!isShowable(reader->size()))
        return QImage();
    QImage image(reader->size(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(image.scanLine(y), reader->nextRow(), size_t(image.width()) * 4);
    return image;
}

QImage overWhite(const QImage &image)
{
    if (image.isNull() || !image.hasAlphaChannel())
        return image.convertToFormat(QImage::Format_RGB32);
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(0, 0, image);
    return opaque;
}

} // namespace

const QImage &ScaledPicture::atLeast(double width) const
{
    const QImage *best = &full;
    for (const QImage &half : halves) {
        if (half.width() < width)
            break;
        best = &half;
    }
    return *best;
}

QImage ScaledPicture::averaged(const QSize &size) const
{
    // From one with twice the pixels, so that the halving before makes no difference.
    return atLeast(2.0 * size.width()).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage PictureReading::read(const QString &path)
{
    try {
        if (const std::optional<QImage> screenshot = readScreenshot(path))
            return *screenshot;
    } catch (const Failure &) {
        return {};
    }
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(path);
    reader.setAutoTransform(true);
    return isShowable(reader.size()) ? overWhite(reader.read()) : QImage();
}

QList<QImage> PictureReading::halves(const QImage &full)
{
    QList<QImage> halves;
    QImage last = full;
    while (qMax(last.width(), last.height()) > 2 * smallestHalf) {
        const QSize half(qMax(1, last.width() / 2), qMax(1, last.height() / 2));
        last = last.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        halves.append(last);
    }
    return halves;
}

} // namespace ardeno
