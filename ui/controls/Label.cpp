// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Label.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace ardeno {

QLabel *makeLabel(const QString &text, TextStyle style, Role role)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setFont(AppTheme::instance().font(style));
    label->setForegroundRole(AppTheme::paletteRole(role));
    return label;
}

QLabel *makeParagraph(const QString &text, TextStyle style, Role role)
{
    QLabel *const label = makeLabel(text, style, role);
    label->setWordWrap(true);
    return label;
}

LineLabel::LineLabel(const QString &text, TextStyle style, Role role, QWidget *parent)
    : QFrame(parent), m_style(style), m_role(role)
{
    setFont(AppTheme::instance().font(style));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

void LineLabel::setText(const QString &text)
{
    m_text = text.simplified(); // A line break would be drawn as a box.
    setAccessibleName(m_text);
    updateGeometry();
    update();
}

void LineLabel::setRole(Role role)
{
    m_role = role;
    update();
}

QSize LineLabel::sizeHint() const
{
    const QFontMetricsF metrics(font());
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_text))) + 1,
            static_cast<int>(std::ceil(metrics.height()))};
}

QSize LineLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void LineLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const Qt::Alignment side = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    Drawing::text(painter, rect(), m_text, m_style, themeColor(m_role), side | Qt::AlignVCenter);
}

bool LineLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        if (sizeHint().width() > width() + 1)
            QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), m_text.toHtmlEscaped(), this);
        return true;
    }
    return QFrame::event(event);
}

SymbolView::SymbolView(const QString &symbol, Role role, int extent, QWidget *parent)
    : QWidget(parent), m_symbol(symbol), m_role(role)
{
    setFixedSize(extent, extent);
}

void SymbolView::setSymbol(const QString &symbol, Role role)
{
    m_symbol = symbol;
    m_role = role;
    update();
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Symbols::draw(painter, m_symbol, rect(), themeColor(m_role));
}

} // namespace ardeno
