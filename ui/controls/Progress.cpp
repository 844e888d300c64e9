// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Progress.h"

#include "ui/theme/AppTheme.h"

#include <QPainter>

#include <chrono>

namespace ardeno {

namespace {

constexpr int steps = 12;
constexpr std::chrono::milliseconds moment(400);

} // namespace

Progress::Progress(const QString &name, QWidget *parent) : QWidget(parent)
{
    setFixedSize(18, 18);
    setAccessibleName(name);
    connect(&m_turn, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % steps;
        update();
    });
    m_patience.setSingleShot(true);
    m_patience.setInterval(moment);
    connect(&m_patience, &QTimer::timeout, this, [this] { show(); });
}

void Progress::setGoingOn(bool isGoingOn)
{
    if (!isGoingOn) {
        m_patience.stop();
        hide();
    } else if (isHidden() && !m_patience.isActive()) {
        m_patience.start();
    }
}

void Progress::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(themeColor(Role::Line), 2));
    const QRectF circle = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.drawEllipse(circle);
    painter.setPen(QPen(themeColor(Role::AccentText), 2, Qt::SolidLine, Qt::RoundCap));
    constexpr int unit = 16; // Angles count sixteenths of a degree.
    painter.drawArc(circle, (90 - m_step * 360 / steps) * unit, -100 * unit);
}

void Progress::showEvent(QShowEvent *)
{
    if (AppTheme::instance().appearance().motion == Motion::Normal)
        m_turn.start(80);
}

void Progress::hideEvent(QHideEvent *)
{
    m_turn.stop();
}

} // namespace ardeno
