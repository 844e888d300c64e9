// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Surfaces.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QPainter>

#include <cmath>

namespace ardeno {

Surface::Surface(Role role, Qt::Edges lines, QWidget *parent) : QWidget(parent), m_role(role), m_lines(lines) {}

void Surface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(m_role));
    for (const Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge}) {
        if (m_lines.testFlag(edge))
            Drawing::edge(painter, rect(), edge, themeColor(Role::Line));
    }
}

Card::Card(QWidget *parent, Role fill, Role line, qreal radius)
    : QWidget(parent), m_fill(fill), m_line(line), m_radius(radius)
{
}

void Card::setColors(Role fill, Role line)
{
    m_fill = fill;
    m_line = line;
    update();
}

void Card::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Drawing::panel(painter, rect(), m_radius, themeColor(m_fill), themeColor(m_line));
}

Chip::Chip(QWidget *parent) : QWidget(parent)
{
    setFont(AppTheme::instance().font(11.5, QFont::Medium));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Chip::show(const QString &text, const QString &symbol, Role ink, Role background)
{
    m_text = text;
    m_symbol = symbol;
    m_ink = ink;
    m_background = background;
    setAccessibleName(text);
    updateGeometry();
    update();
}

void Chip::setSmall()
{
    m_isSmall = true;
    setFont(AppTheme::instance().font(9, QFont::DemiBold));
    updateGeometry();
}

QSize Chip::sizeHint() const
{
    const QFontMetricsF metrics(font());
    const int symbol = m_symbol.isEmpty() ? 0 : 24;
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_text))) + 2 * padding() + symbol,
            static_cast<int>(std::ceil(metrics.height())) + (m_isSmall ? 4 : 9)};
}

void Chip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor line = m_background == Role::Card ? themeColor(Role::Line) : QColor(Qt::transparent);
    Drawing::panel(painter, rect(), height() / 2.0, themeColor(m_background), line);
    qreal left = padding();
    if (!m_symbol.isEmpty()) {
        Symbols::draw(painter, m_symbol, {left, (height() - 16) / 2.0, 16, 16}, themeColor(m_ink));
        left += 22;
    }
    painter.setFont(font());
    painter.setPen(themeColor(m_ink));
    painter.drawText(QRectF(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter, m_text);
}

QHBoxLayout *makeRow(int spacing, QWidget *owner)
{
    auto *row = new QHBoxLayout(owner);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

QVBoxLayout *makeColumn(int spacing, QWidget *owner)
{
    auto *column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

} // namespace ardeno
