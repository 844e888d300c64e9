// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/Drawing.h"

#include <QGuiApplication>
#include <QPixmapCache>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ardeno {

namespace {

QRectF onPixels(const QPainter &painter, const QRectF &rect)
{
    const QTransform toScreen = painter.deviceTransform();
    const QRectF mapped = toScreen.mapRect(rect);
    const QPointF topLeft(std::round(mapped.left()), std::round(mapped.top()));
    const QPointF bottomRight(std::round(mapped.right()), std::round(mapped.bottom()));
    return toScreen.inverted().mapRect(QRectF(topLeft, bottomRight));
}

constexpr int shadowReach = 56;     // From the panel's edge outwards.
constexpr int shadowCorner = 100;   // What of the shadow is not the same along a whole edge.
constexpr int shadowOffset = 18;    // Downwards.
constexpr qreal shadowBlur = 24;    // The deviation of the blur.
constexpr qreal shadowAlpha = 0.26; // Where it is deepest.

// The corners of a blurred rectangle, with edges of one pixel between them.
QPixmap makeShadowCorners(qreal ratio)
{
    const int corner = static_cast<int>(std::lround(shadowCorner * ratio));
    const int side = 2 * corner + 1;
    std::vector<qreal> share(side); // Of the shadow, so far from the left or the top.
    for (int at = 0; at < side; ++at) {
        const qreal within = std::min(at, side - 1 - at) / ratio - shadowReach;
        share[at] = 0.5 * (1 + std::erf(within / (shadowBlur * M_SQRT2)));
    }
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x)
            row[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(255 * shadowAlpha * share[x] * share[y])));
    }
    return QPixmap::fromImage(image);
}

} // namespace

qreal Drawing::hairline(const QPainter &painter)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    return std::max(1.0, std::floor(ratio)) / ratio;
}

void Drawing::panel(QPainter &painter, const QRectF &rect, qreal radius, const QColor &fill, const QColor &line)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = hairline(painter);
    const bool isFramed = line.alpha() > 0;
    const QRectF outer = onPixels(painter, rect);
    painter.setPen(isFramed ? QPen(line, width) : QPen(Qt::NoPen));
    painter.setBrush(fill);
    const qreal inset = isFramed ? width / 2 : 0;
    painter.drawRoundedRect(outer.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

void Drawing::edge(QPainter &painter, const QRectF &rect, Qt::Edge which, const QColor &color)
{
    const qreal width = hairline(painter);
    QRectF line = onPixels(painter, rect);
    switch (which) {
    case Qt::TopEdge:
        line.setHeight(width);
        break;
    case Qt::BottomEdge:
        line.setTop(line.bottom() - width);
        break;
    case Qt::LeftEdge:
        line.setWidth(width);
        break;
    case Qt::RightEdge:
        line.setLeft(line.right() - width);
        break;
    }
    painter.fillRect(line, color);
}

void Drawing::shadow(QPainter &painter, const QRect &panel)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    const QString key = QString("ardeno-shadow-%1").arg(ratio);
    QPixmap corners;
    if (!QPixmapCache::find(key, &corners)) {
        corners = makeShadowCorners(ratio);
        QPixmapCache::insert(key, corners);
    }
    const QRect target = panel.marginsAdded(QMargins() + shadowReach).translated(0, shadowOffset);
    const QMargins own = QMargins() + (corners.width() - 1) / 2;
    qDrawBorderPixmap(&painter, target, QMargins() + shadowCorner, corners, corners.rect(), own);
}

void Drawing::softShadow(QPainter &painter, const QRectF &panel, qreal radius, int margin)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // Rings that add up, so that it is deepest at the panel's edge. The first ones lie below the panel: moved down,
    // they would leave a bright rim at its lower edge.
    const int drop = margin / 4; // Downwards.
    for (int ring = -drop; ring < margin - drop; ++ring) {
        const qreal share = std::min(1.0, 1 - qreal(ring) / (margin - drop));
        painter.setPen(QPen(QColor::fromRgbF(0, 0, 0, static_cast<float>(0.16 * share * share)), 1.2));
        painter.drawRoundedRect(panel.adjusted(-ring, -ring + drop, ring, ring + drop), radius + ring, radius + ring);
    }
    painter.restore();
}

void Drawing::focusRing(QPainter &painter, const QRectF &rect, qreal radius, RingOn on)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(themeColor(Role::AccentText), 2));
    painter.drawRoundedRect(rect.adjusted(1, 1, -1, -1), radius, radius);
    if (on != RingOn::Surface) {
        painter.setPen(QPen(themeColor(on == RingOn::Fill ? Role::OnAccent : Role::Paper), 1.5));
        painter.drawRoundedRect(rect.adjusted(3, 3, -3, -3), radius - 2, radius - 2);
    }
    painter.restore();
}

void Drawing::field(QPainter &painter, const QRectF &rect, bool hasFocus)
{
    panel(painter, rect, 7, themeColor(Role::Field), themeColor(hasFocus ? Role::Accent : Role::Outline));
    if (hasFocus)
        focusRing(painter, rect, 7);
}

QString Drawing::fitted(const QString &text, const QFontMetricsF &metrics, qreal width)
{
    constexpr qsizetype widest = 2000; // Characters; no window is wider.
    const QString shown = metrics.elidedText(text.left(widest), Qt::ElideRight, width);
    // An isolate has the direction of its first letter, and ends at that direction's end.
    constexpr QChar isolate(0x2068);
    constexpr QChar endOfIsolate(0x2069);
    const bool isForeign = text.isRightToLeft() != QGuiApplication::isRightToLeft();
    return isForeign ? isolate + shown + endOfIsolate : shown;
}

void Drawing::text(QPainter &painter, const QRectF &rect, const QString &text, TextStyle style, const QColor &color,
                   Qt::Alignment alignment)
{
    const QFont font = AppTheme::instance().font(style);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine,
                     fitted(text, QFontMetricsF(font, painter.device()), rect.width()));
}

} // namespace ardeno
