// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScreenshotCanvas.h"

#include <QGestureEvent>
#include <QKeyEvent>
#include <QNativeGestureEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

// How a picture is zoomed and moved by hand.
namespace ardeno {

namespace {

constexpr double leastPinch = 0.01; // Smaller changes are a hand at rest.
constexpr double anglePerStep = 120;

} // namespace

void ScreenshotCanvas::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    // A touchpad sends parts of a step.
    const double factor = std::pow(ScreenshotScale::step, event->angleDelta().y() / anglePerStep);
    change(ScreenshotScale::zoomedIn(scale(), factor), 1.0, event->position());
    event->accept();
}

void ScreenshotCanvas::keyPressEvent(QKeyEvent *event)
{
    QScrollBar *const across = horizontalScrollBar();
    QScrollBar *const down = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_Left:
        return across->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Right:
        return across->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Up:
        return down->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
        return down->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return down->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return down->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Home:
        across->setValue(0);
        return down->setValue(0);
    case Qt::Key_End:
        across->setValue(across->maximum());
        return down->setValue(down->maximum());
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomIn();
    case Qt::Key_Minus:
        return zoomOut();
    default:
        event->ignore();
    }
}

void ScreenshotCanvas::showCursor()
{
    const bool isMovable = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
    viewport()->setCursor(m_isDragging ? Qt::ClosedHandCursor : isMovable ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void ScreenshotCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_isDragging = true;
    m_dragFrom = event->position().toPoint();
    showCursor();
}

void ScreenshotCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isDragging)
        return;
    const QPoint moved = event->position().toPoint() - m_dragFrom;
    m_dragFrom = event->position().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void ScreenshotCanvas::mouseReleaseEvent(QMouseEvent *)
{
    m_isDragging = false;
    showCursor();
}

void ScreenshotCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && pictureRect().contains(event->position()))
        change(ScreenshotScale::toggled(m_zoom), 1.0, event->position());
}

bool ScreenshotCanvas::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::NativeGesture)
        return handleNative(*static_cast<QNativeGestureEvent *>(event));
    if (event->type() == QEvent::Gesture)
        return handleGesture(*static_cast<QGestureEvent *>(event));
    return QAbstractScrollArea::viewportEvent(event);
}

// A touchpad.
bool ScreenshotCanvas::handleNative(const QNativeGestureEvent &event)
{
    switch (event.gestureType()) {
    case Qt::BeginNativeGesture:
        m_pinchAnchor = event.position();
        return true;
    case Qt::ZoomNativeGesture:
        pinch(m_magnification * (1 + event.value()), event.position());
        return true;
    case Qt::EndNativeGesture:
        endPinch();
        return true;
    default:
        return false;
    }
}

// A touch screen.
bool ScreenshotCanvas::handleGesture(QGestureEvent &event)
{
    const auto *const gesture = static_cast<QPinchGesture *>(event.gesture(Qt::PinchGesture));
    if (!gesture)
        return false;
    event.accept(Qt::PinchGesture);
    m_isDragging = false;
    pinch(gesture->totalScaleFactor(), viewport()->mapFromGlobal(gesture->centerPoint()));
    if (gesture->state() == Qt::GestureFinished || gesture->state() == Qt::GestureCanceled)
        endPinch();
    return true;
}

void ScreenshotCanvas::pinch(double factor, const QPointF &anchor)
{
    m_pinchAnchor = anchor;
    if (factor > 0 && std::abs(factor - m_magnification) >= leastPinch)
        change(m_zoom, factor, anchor);
}

void ScreenshotCanvas::endPinch()
{
    if (m_magnification != 1.0)
        change(scale(), 1.0, m_pinchAnchor);
}

} // namespace ardeno
