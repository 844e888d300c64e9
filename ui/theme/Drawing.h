// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>

namespace ardeno::Drawing {

// The thickness of a thin line in logical pixels: a whole number of the screen's own.
qreal hairline(const QPainter &painter);

// A rounded panel with a thin line inside its edge, on whole pixels of the screen.
void panel(QPainter &painter, const QRectF &rect, qreal radius, const QColor &fill, const QColor &line);

// A thin horizontal or vertical line along an edge of the rectangle.
void edge(QPainter &painter, const QRectF &rect, Qt::Edge which, const QColor &color);

// The soft shadow that a panel throws on what lies below it, which is painted before the panel.
void shadow(QPainter &painter, const QRect &panel);

// The small one of a menu or a tooltip, within the margin around it.
void softShadow(QPainter &painter, const QRectF &panel, qreal radius, int margin);

// The ring around what has the keyboard's focus. On a filled background, and on what is selected and has
// an outline of its own, it is a light one within a dark one.
enum class RingOn { Surface, Fill, Selection };
void focusRing(QPainter &painter, const QRectF &rect, qreal radius, RingOn on = RingOn::Surface);

// The background of what is typed into or chosen from.
void field(QPainter &painter, const QRectF &rect, bool hasFocus);

// A text that fits this width, with "…" where it ends for who reads it, in whichever direction. A text in the other
// direction than that of the window keeps its own order.
QString fitted(const QString &text, const QFontMetricsF &metrics, qreal width);

// One line of text, elided, in the middle of the rectangle where lines begin: at the left, or where it is read from the
// right at the right.
void text(QPainter &painter, const QRectF &rect, const QString &text, TextStyle style, const QColor &color,
          Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

} // namespace ardeno::Drawing
