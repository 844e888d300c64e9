// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/projects/ThumbnailShelf.h"

#include "ui/controls/PictureImage.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QPainterPath>

namespace ardeno {

void ThumbnailShelf::draw(QPainter &painter, const QRectF &area, const Checkpoint &checkpoint, qreal radius)
{
    const QImage *const image = find(checkpoint, painter.device()->devicePixelRatio());
    if (!image) {
        Drawing::panel(painter, area, radius, themeColor(Role::Paper), themeColor(Role::Line));
        Symbols::draw(painter, "photo", {area.center().x() - 8, area.center().y() - 8, 16, 16},
                      themeColor(Role::Faint));
        return;
    }
    Drawing::panel(painter, area, radius, themeColor(Role::PictureGround), Qt::transparent);
    const QSizeF size = QSizeF(image->size()).scaled(area.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(area.center());
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath rounded;
    rounded.addRoundedRect(target, radius, radius);
    painter.setClipPath(rounded);
    painter.drawImage(target, *image);
    painter.restore();
}

const QImage *ThumbnailShelf::find(const Checkpoint &checkpoint, qreal ratio)
{
    const QString path = m_media.screenshotFile(checkpoint).value_or(QString());
    if (path.isEmpty())
        return nullptr;
    if (const QImage *const known = m_images.object(path))
        return known->isNull() ? nullptr : known;
    if (!m_asked.contains(path)) {
        m_asked.insert(path, m_media.thumbnails().request(path, [this, path, ratio](const Thumbnail &thumbnail) {
            take(path, thumbnail, ratio);
        }));
    }
    return nullptr;
}

void ThumbnailShelf::take(const QString &path, const Thumbnail &thumbnail, qreal ratio)
{
    const Thumbnails::Request answered = m_asked.take(path); // It goes when this answer has been given.
    if (thumbnail.state != Thumbnail::State::Dropped) {
        const QImage image = toImage(thumbnail.picture);
        const QSize room = (QSizeF(m_size) * ratio).toSize();
        m_images.insert(path, image.isNull()
                                  ? new QImage
                                  : new QImage(image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    }
    m_arrived();
}

} // namespace ardeno
