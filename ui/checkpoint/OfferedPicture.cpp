// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/OfferedPicture.h"

#include "support/Failure.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QMimeData>
#include <QTemporaryFile>
#include <QUrl>

#include <algorithm>

namespace ardeno {

namespace {

struct OfferedPictureTexts final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::OfferedPictureTexts)
};

// The formats that keep every pixel first.
const QStringList encodedFormats = {"image/png",  "image/tiff", "image/bmp", "image/webp",
                                    "image/avif", "image/jpeg", "image/gif"};

std::optional<QString> fileOf(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return std::nullopt;
    return urls.first().toLocalFile();
}

QByteArray encoded(const QMimeData &data)
{
    for (const QString &format : encodedFormats) {
        if (const QByteArray bytes = data.data(format); !bytes.isEmpty())
            return bytes;
    }
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    qvariant_cast<QImage>(data.imageData()).save(&png, "PNG");
    return png.data();
}

QCoro::Task<void> import(ScreenshotEditing &screenshots, QUuid checkpointID, OfferedPicture picture)
{
    co_await screenshots.importScreenshot(picture.file(), checkpointID);
}

} // namespace

bool OfferedPicture::isIn(const QMimeData *data)
{
    if (!data)
        return false;
    const auto has = [&](const QString &format) { return data->hasFormat(format); };
    return fileOf(*data) || data->hasImage() || std::any_of(encodedFormats.begin(), encodedFormats.end(), has);
}

OfferedPicture::OfferedPicture(const QMimeData &data) : m_file(fileOf(data).value_or(QString()))
{
    if (!m_file.isEmpty())
        return;
    m_copy = std::make_shared<QTemporaryFile>(QDir::tempPath() + "/ardeno-XXXXXX");
    const QByteArray bytes = encoded(data);
    if (!m_copy->open() || m_copy->write(bytes) != bytes.size() || !m_copy->flush())
        throw Failure("Media", 0, m_copy->errorString());
    m_file = m_copy->fileName();
}

void adoptPicture(ScreenshotEditing &screenshots, Messages &messages, const QUuid &checkpointID, const QMimeData *data)
{
    if (!OfferedPicture::isIn(data))
        return;
    try {
        import(screenshots, checkpointID, OfferedPicture(*data));
    } catch (const Failure &failure) {
        messages.report(OfferedPictureTexts::tr("Could not add the image: ") + failure.description());
    }
}

} // namespace ardeno
