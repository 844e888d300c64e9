// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/viewer/ScaledPicture.h"
#include "ui/viewer/ScreenshotScale.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <QTimer>

#include <functional>

class QGestureEvent;
class QNativeGestureEvent;

namespace ardeno {

// A picture that is zoomed (wheel with Control, pinch, double click) and moved (drag, wheel, keys). Large ones stay
// smooth: a scaled copy is drawn while it moves, and full quality once it rests.
class ScreenshotCanvas final : public QAbstractScrollArea {
public:
    explicit ScreenshotCanvas(const QString &path, QWidget *parent = nullptr);

    // The scale in use changed, or the picture turned out to be readable or not.
    void setOnChange(std::function<void()> changed) { m_changed = std::move(changed); }

    bool isUnavailable() const { return m_isUnavailable; }

    // Whether the file has answered.
    bool isKnown() const { return m_isUnavailable || !m_pixels.isEmpty(); }

    // Whether the next painting shows the picture as well as it can be.
    bool isSharp() const;

    // Of what the picture is drawn from while nothing better is there; 0 when there is nothing at all.
    bool hasPreview() const { return !m_preview.isNull(); }

    double zoom() const { return m_zoom; }

    double scale() const;

    // Keeps the point in the middle, unless it is told another one, where it is.
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    // Reading, each step on a worker.
    void read();
    void takeSize(const QSize &size);
    void take(const QImage &image);
    void rest();
    void makeHalves();

    QSize drawnPixels() const; // Of the screen.
    QSizeF drawnSize() const;  // Points.
    QRectF pictureRect() const;
    QPointF middle() const;
    void change(double zoom, double magnification, const QPointF &anchor);
    void layOut();
    void showCursor();
    void drawPicture(QPainter &painter, const QRectF &exposed) const;

    bool handleNative(const QNativeGestureEvent &event);
    bool handleGesture(QGestureEvent &event);
    void pinch(double factor, const QPointF &anchor);
    void endPinch();

    QString m_path;
    QSize m_pixels; // Of the picture.
    QImage m_preview;
    ScaledPicture m_picture;
    QImage m_rested; // Exactly as large as it is drawn.
    QTimer m_rest;
    double m_zoom = ScreenshotScale::fitting;
    double m_magnification = 1.0;
    QPointF m_pinchAnchor;
    QPoint m_dragFrom;
    bool m_isDragging = false;
    bool m_isUnavailable = false;
    bool m_showsFocus = false;
    std::function<void()> m_changed;
};

} // namespace ardeno
