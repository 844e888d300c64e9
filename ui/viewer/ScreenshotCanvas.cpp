// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScreenshotCanvas.h"

#include "ui/controls/InBackground.h"
#include "ui/theme/Drawing.h"
#include "ui/viewer/PicturePreviews.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <chrono>
#include <cmath>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds restAfter(120);
// A copy of full quality is only made up to this size; beyond it the scale is so large that drawing is as good.
constexpr qint64 mostRestedPixels = 16'000'000;

void drawPictureShadow(QPainter &painter, const QRectF &picture)
{
    // Ten rings of a little more than 1 % make 12 % at the edge.
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 3));
    for (int extent = 20; extent > 0; extent -= 2)
        painter.drawRoundedRect(picture.adjusted(-extent, 3 - extent, extent, 3 + extent), extent, extent);
    painter.restore();
}

} // namespace

ScreenshotCanvas::ScreenshotCanvas(const QString &path, QWidget *parent)
    : QAbstractScrollArea(parent), m_path(path), m_preview(PicturePreviews::find(path))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QCoreApplication::translate(
        "ardeno::ScreenshotViewer", "Saved screenshot. Use the toolbar to zoom, or double-click for actual size."));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    viewport()->grabGesture(Qt::PinchGesture);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfter);
    connect(&m_rest, &QTimer::timeout, this, [this] { rest(); });
    read();
}

void ScreenshotCanvas::read()
{
    // The size comes first, so that what stands for the picture until it has been read lies where it will.
    inBackground<QSize>(
        this, [path = m_path] { return PictureReading::size(path); }, [this](const QSize &size) { takeSize(size); });
    inBackground<QImage>(
        this, [path = m_path] { return PictureReading::read(path); }, [this](const QImage &image) { take(image); });
}

void ScreenshotCanvas::takeSize(const QSize &size)
{
    if (isKnown())
        return;
    m_pixels = size;
    m_isUnavailable = size.isEmpty();
    layOut();
    if (m_changed)
        m_changed();
}

void ScreenshotCanvas::take(const QImage &image)
{
    m_picture.full = image;
    m_isUnavailable = image.isNull();
    if (!m_isUnavailable)
        m_pixels = image.size(); // A photograph may be stored lying on its side.
    layOut();
    rest();
    if (m_changed)
        m_changed();
}

void ScreenshotCanvas::rest()
{
    const QSize size = drawnPixels();
    if (m_picture.full.isNull() || m_magnification != 1.0)
        return;
    if (isSharp()) {
        makeHalves();
        return;
    }
    inBackground<QImage>(
        this, [picture = m_picture, size] { return picture.averaged(size); },
        [this, size](const QImage &image) {
            if (size == drawnPixels())
                m_rested = image;
            viewport()->update();
            makeHalves();
        });
}

// For zooming; the first sharp picture comes before.
void ScreenshotCanvas::makeHalves()
{
    if (!m_picture.halves.isEmpty() || m_picture.full.isNull())
        return;
    inBackground<QList<QImage>>(
        this, [full = m_picture.full] { return PictureReading::halves(full); },
        [this](const QList<QImage> &halves) {
            m_picture.halves = halves;
            viewport()->update();
        });
}

bool ScreenshotCanvas::isSharp() const
{
    const QSize size = drawnPixels();
    const bool isMadeSmaller = size.width() < m_picture.full.width() || size.height() < m_picture.full.height();
    const bool isRestable = qint64(size.width()) * size.height() <= mostRestedPixels;
    return !m_picture.full.isNull() && (!isMadeSmaller || !isRestable || m_rested.size() == size);
}

double ScreenshotCanvas::scale() const
{
    // Of the whole window, as scroll bars come and go with the scale.
    return ScreenshotScale::inUse(m_zoom, m_magnification, maximumViewportSize(), m_pixels);
}

QSize ScreenshotCanvas::drawnPixels() const
{
    const double ratio = scale() * devicePixelRatioF();
    return {qMax(1, qRound(m_pixels.width() * ratio)), qMax(1, qRound(m_pixels.height() * ratio))};
}

QSizeF ScreenshotCanvas::drawnSize() const
{
    return QSizeF(drawnPixels()) / devicePixelRatioF();
}

QRectF ScreenshotCanvas::pictureRect() const
{
    const double ratio = devicePixelRatioF();
    const auto start = [ratio](double room, double extent, int scrolled) {
        const double free = (room - extent) / 2;
        // On whole pixels of the screen.
        return free >= ScreenshotScale::margin ? std::floor(free * ratio) / ratio : ScreenshotScale::margin - scrolled;
    };
    const QSizeF size = drawnSize();
    return {QPointF(start(viewport()->width(), size.width(), horizontalScrollBar()->value()),
                    start(viewport()->height(), size.height(), verticalScrollBar()->value())),
            size};
}

QPointF ScreenshotCanvas::middle() const
{
    return QRectF(viewport()->rect()).center();
}

void ScreenshotCanvas::layOut()
{
    const QSizeF size = drawnSize();
    const auto fill = [](QScrollBar *bar, double extent, int room) {
        bar->setPageStep(room);
        bar->setSingleStep(40);
        bar->setRange(0, qMax(0, static_cast<int>(std::ceil(extent + 2 * ScreenshotScale::margin)) - room));
    };
    fill(horizontalScrollBar(), size.width(), viewport()->width());
    fill(verticalScrollBar(), size.height(), viewport()->height());
    showCursor();
    viewport()->update();
}

void ScreenshotCanvas::change(double zoom, double magnification, const QPointF &anchor)
{
    if (m_isUnavailable)
        return;
    const QRectF before = pictureRect();
    const QPointF share((anchor.x() - before.x()) / before.width(), (anchor.y() - before.y()) / before.height());
    m_zoom = zoom;
    m_magnification = magnification;
    layOut();
    layOut(); // Once more with the scroll bars that it needs now.
    const QSizeF size = drawnSize();
    horizontalScrollBar()->setValue(qRound(ScreenshotScale::margin + share.x() * size.width() - anchor.x()));
    verticalScrollBar()->setValue(qRound(ScreenshotScale::margin + share.y() * size.height() - anchor.y()));
    m_rest.start();
    if (m_changed)
        m_changed();
}

void ScreenshotCanvas::setZoom(double zoom)
{
    change(zoom, 1.0, middle());
}

void ScreenshotCanvas::zoomIn()
{
    setZoom(ScreenshotScale::zoomedIn(scale()));
}

void ScreenshotCanvas::zoomOut()
{
    setZoom(ScreenshotScale::zoomedOut(scale()));
}

void ScreenshotCanvas::resizeEvent(QResizeEvent *)
{
    layOut();
    m_rest.start();
    if (m_changed)
        m_changed();
}

void ScreenshotCanvas::scrollContentsBy(int, int)
{
    viewport()->update();
}

void ScreenshotCanvas::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), themeColor(Role::Sidebar));
    if (!isKnown())
        return;
    const QRectF picture = pictureRect();
    drawPictureShadow(painter, picture);
    painter.fillRect(picture, Qt::white);
    drawPicture(painter, event->rect());
    if (m_showsFocus)
        Drawing::focusRing(painter, QRectF(viewport()->rect()).adjusted(2, 2, -2, -2), 6);
}

void ScreenshotCanvas::drawPicture(QPainter &painter, const QRectF &exposed) const
{
    const QRectF picture = pictureRect();
    const QRectF target = picture & exposed;
    const QSize size = drawnPixels();
    const bool isRested = m_rested.size() == size;
    const QImage &full = m_picture.full.isNull() ? m_preview : m_picture.atLeast(size.width());
    const QImage &image = isRested ? m_rested : full;
    if (image.isNull() || target.isEmpty())
        return;
    const double across = image.width() / picture.width();
    const double down = image.height() / picture.height();
    const QRectF source((target.x() - picture.x()) * across, (target.y() - picture.y()) * down, target.width() * across,
                        target.height() * down);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !isRested);
    painter.drawImage(target, image, source);
}

void ScreenshotCanvas::focusInEvent(QFocusEvent *event)
{
    m_showsFocus = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    viewport()->update();
}

void ScreenshotCanvas::focusOutEvent(QFocusEvent *)
{
    m_showsFocus = false;
    viewport()->update();
}

} // namespace ardeno
