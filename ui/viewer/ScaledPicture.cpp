// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScaledPicture.h"

#include "media/PictureFile.h"
#include "support/Failure.h"
#include "ui/controls/PictureImage.h"

#include <new>
#include <optional>

namespace ardeno {

namespace {

constexpr int smallestHalf = 256; // Pixels of the longer side.

// The answer of the file, or an empty one.
template <typename Answer, typename Question>
Answer askedOf(const QString &path, Question question)
{
    try {
        if (std::optional<PictureFile> file = PictureFile::opened(path))
            return question(*file);
    } catch (const Failure &) {
        // It is shown as unavailable.
    } catch (const std::bad_alloc &) {
    }
    return {};
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

QSize PictureReading::size(const QString &path)
{
    return askedOf<QSize>(path, [](PictureFile &file) { return file.size(); });
}

QImage PictureReading::read(const QString &path)
{
    return askedOf<QImage>(path, [](PictureFile &file) { return toImage(file.whole()); });
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
