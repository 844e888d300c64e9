// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/checkpoint/ScreenshotImage.h"

#include "media/PictureFile.h"
#include "support/Failure.h"
#include "ui/controls/InBackground.h"
#include "ui/controls/InputWatch.h"
#include "ui/controls/PictureImage.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"
#include "ui/viewer/PicturePreviews.h"
#include "ui/viewer/ScaledPicture.h"

#include <QFocusEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace ardeno {

namespace {

// Null when it cannot be read, or is not wanted any more.
QImage readScaled(const QString &path, QSize wanted, const std::shared_ptr<std::atomic<bool>> &isWanted)
{
    try {
        std::optional<PictureFile> file = PictureFile::opened(path);
        // Made small coarsely in the memory of the result, then finely.
        const int coarse = 2 * std::max(wanted.width(), wanted.height());
        std::optional<Picture> picture = file ? file->shrunken(coarse, [&] { return isWanted->load(); }) : std::nullopt;
        if (picture)
            return toImage(std::move(*picture)).scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    } catch (const Failure &) {
        // It is shown as unavailable.
    } catch (const std::bad_alloc &) {
    }
    return {};
}

} // namespace

ScreenshotImage::ScreenshotImage(const QString &path, Enlarging enlarging, QWidget *parent)
    : QAbstractButton(parent), m_path(path)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFocusPolicy(enlarging == Enlarging::Yes ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleName(tr("Saved screenshot"));
    if (enlarging == Enlarging::Yes) {
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::PointingHandCursor);
        setAccessibleName(tr("Expand saved screenshot"));
        setAccessibleDescription(tr("Click to view, zoom and pan the full screenshot"));
        setToolTip(tr("Open full-size screenshot"));
    }
    readSize();
}

ScreenshotImage::~ScreenshotImage()
{
    if (m_isWanted)
        m_isWanted->store(false);
}

void ScreenshotImage::setPreview(const QImage &preview)
{
    m_preview = preview;
    update();
}

QSize ScreenshotImage::sizeHint() const
{
    // No wider than the picture becomes, in whatever room.
    constexpr int widestRoom = 4096;
    return m_isUnavailable ? QSize(widestRoom, heightForWidth(widestRoom)) : shownSize(widestRoom);
}

int ScreenshotImage::heightForWidth(int width) const
{
    return m_isUnavailable ? qMin(160, m_mostHeight) : shownSize(width).height();
}

QSize ScreenshotImage::shownSize(int width) const
{
    const QSizeF whole = m_fullSize.isEmpty() ? QSizeF(16, 9) * width : QSizeF(m_fullSize) / devicePixelRatioF();
    QSizeF shown = whole.scaled(width, m_mostHeight, Qt::KeepAspectRatio);
    if (shown.width() > whole.width())
        shown = whole; // Never larger than it is.
    return shown.toSize().expandedTo(QSize(1, 1));
}

QRectF ScreenshotImage::shownArea() const
{
    const QSize shown = shownSize(width());
    return {QPointF((width() - shown.width()) / 2.0, (height() - shown.height()) / 2.0), QSizeF(shown)};
}

void ScreenshotImage::setMostHeight(int height)
{
    if (height == m_mostHeight)
        return;
    m_mostHeight = height;
    updateGeometry();
    read();
}

void ScreenshotImage::resizeEvent(QResizeEvent *)
{
    read();
}

void ScreenshotImage::readSize()
{
    inBackground<QSize>(
        this, [path = m_path] { return PictureReading::size(path); },
        [this](const QSize &size) {
            m_fullSize = size;
            if (m_fullSize.isEmpty())
                setUnavailable();
            updateGeometry();
            read();
        });
}

void ScreenshotImage::setUnavailable()
{
    m_isUnavailable = true;
    setFocusPolicy(Qt::NoFocus);
    unsetCursor();
    setAccessibleName(tr("Screenshot unavailable"));
    setAccessibleDescription({});
    setToolTip({});
    updateGeometry();
}

void ScreenshotImage::read()
{
    if (m_isUnavailable || m_fullSize.isEmpty())
        return;
    const int wanted = qMin(m_fullSize.width(), qRound(shownSize(width()).width() * devicePixelRatioF()));
    if (wanted == m_askedWidth)
        return;
    m_askedWidth = wanted;
    if (m_isWanted)
        m_isWanted->store(false);
    m_isWanted = std::make_shared<std::atomic<bool>>(true);
    const QSize size(wanted, std::max(1, qRound(double(wanted) * m_fullSize.height() / m_fullSize.width())));
    inBackground<QImage>(
        this, [path = m_path, size, isWanted = m_isWanted] { return readScaled(path, size, isWanted); },
        [this, wanted](const QImage &image) {
            if (wanted == m_askedWidth)
                take(image);
        });
}

void ScreenshotImage::take(const QImage &image)
{
    m_image = image;
    if (image.isNull())
        setUnavailable();
    else
        PicturePreviews::keep(m_path, image);
    update();
}

void ScreenshotImage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (m_isUnavailable) {
        drawUnavailable(painter);
        return;
    }
    const QRectF target = shownArea();
    // The whole width belongs to the picture, whatever its form.
    QPainterPath rounded;
    rounded.addRoundedRect(rect(), 8, 8);
    painter.fillPath(rounded, themeColor(Role::PictureGround));
    painter.setClipPath(rounded);
    if (const QImage &shownImage = m_image.isNull() ? m_preview : m_image; !shownImage.isNull())
        painter.drawImage(target, shownImage);
    painter.setClipping(false);
    if (focusPolicy() != Qt::NoFocus && (underMouse() || m_showsFocus))
        drawHint(painter);
    if (m_showsFocus)
        Drawing::focusRing(painter, rect(), 8);
}

void ScreenshotImage::drawUnavailable(QPainter &painter)
{
    Drawing::panel(painter, rect(), 8, themeColor(Role::Paper), themeColor(Role::Line));
    Symbols::draw(painter, "photo", {width() / 2.0 - 14, height() / 2.0 - 30, 28, 28}, themeColor(Role::Faint));
    Drawing::text(painter, QRectF(0, height() / 2.0 + 6, width(), 24), tr("Screenshot unavailable"), TextStyle::Body,
                  themeColor(Role::Dim), Qt::AlignCenter);
}

void ScreenshotImage::drawHint(QPainter &painter)
{
    const QString text = tr("Click to enlarge");
    const QFont font = AppTheme::instance().font(TextStyle::Strong);
    const qreal wide = QFontMetricsF(font).horizontalAdvance(text) + 52;
    QRectF plate(0, 0, wide, 36);
    plate.moveCenter(shownArea().center());
    Drawing::panel(painter, plate, 18, QColor(20, 21, 26, 215), Qt::transparent);
    Symbols::draw(painter, "arrow.up.left.and.arrow.down.right", {plate.left() + 14, plate.center().y() - 8, 16, 16},
                  Qt::white);
    Drawing::text(painter, plate.adjusted(38, 0, -10, 0), text, TextStyle::Strong, Qt::white);
}

void ScreenshotImage::focusInEvent(QFocusEvent *event)
{
    m_showsFocus = event->reason() != Qt::MouseFocusReason && InputWatch::instance().isByKeys();
    QAbstractButton::focusInEvent(event);
}

void ScreenshotImage::focusOutEvent(QFocusEvent *event)
{
    m_showsFocus = false;
    QAbstractButton::focusOutEvent(event);
}

} // namespace ardeno
