// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FadedEdges.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <iterator>

namespace ardeno {

namespace {

constexpr int fadeLength = 22;
constexpr Qt::Edge allEdges[] = {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge};

QRect stripAt(const QRect &rect, Qt::Edge edge)
{
    switch (edge) {
    case Qt::TopEdge:
        return {rect.topLeft(), QSize(rect.width(), fadeLength)};
    case Qt::BottomEdge:
        return {rect.left(), rect.bottom() - fadeLength + 1, rect.width(), fadeLength};
    case Qt::LeftEdge:
        return {rect.topLeft(), QSize(fadeLength, rect.height())};
    case Qt::RightEdge:
        break;
    }
    return {rect.right() - fadeLength + 1, rect.top(), fadeLength, rect.height()};
}

// From the edge inwards.
QLinearGradient inwards(const QRect &strip, Qt::Edge edge)
{
    const QRectF rect(strip);
    switch (edge) {
    case Qt::TopEdge:
        return {rect.topLeft(), rect.bottomLeft()};
    case Qt::BottomEdge:
        return {rect.bottomLeft(), rect.topLeft()};
    case Qt::LeftEdge:
        return {rect.topLeft(), rect.topRight()};
    case Qt::RightEdge:
        break;
    }
    return {rect.topRight(), rect.topLeft()};
}

} // namespace

FadedEdges::FadedEdges(QAbstractScrollArea *area, Role background)
    : QWidget(area), m_area(area), m_background(background)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    area->viewport()->installEventFilter(this);
    for (QScrollBar *const bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, [this] { showEdges(); });
        connect(bar, &QScrollBar::rangeChanged, this, [this] { showEdges(); });
    }
    showEdges();
}

bool FadedEdges::isMoreAt(Qt::Edge edge) const
{
    const bool isAcross = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    const QScrollBar *const bar = isAcross ? m_area->horizontalScrollBar() : m_area->verticalScrollBar();
    const bool isAtStart = edge == Qt::LeftEdge || edge == Qt::TopEdge;
    return isAtStart ? bar->value() > bar->minimum() : bar->value() < bar->maximum();
}

void FadedEdges::showEdges()
{
    setGeometry(m_area->viewport()->geometry());
    const bool isCut =
        std::any_of(std::begin(allEdges), std::end(allEdges), [this](auto edge) { return isMoreAt(edge); });
    setVisible(isCut);
    raise();
    update();
}

bool FadedEdges::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        showEdges();
    return QWidget::eventFilter(watched, event);
}

void FadedEdges::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor background = themeColor(m_background);
    QColor clear = background;
    clear.setAlpha(0);
    for (const Qt::Edge edge : allEdges) {
        if (!isMoreAt(edge))
            continue;
        const QRect strip = stripAt(rect(), edge);
        QLinearGradient fade = inwards(strip, edge);
        fade.setColorAt(0, background);
        fade.setColorAt(1, clear);
        painter.fillRect(strip, fade);
    }
}

} // namespace ardeno
