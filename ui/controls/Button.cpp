// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Button.h"

#include "ui/controls/Label.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno {

namespace {

constexpr int symbolExtent = 16;
constexpr int gap = 7;

QColor shaded(const QColor &color, int percent)
{
    return AppTheme::instance().appearance().scheme == Scheme::Dark ? color.lighter(percent) : color.darker(percent);
}

} // namespace

Button::Button(const QString &text, Kind kind, const QString &symbol, QWidget *parent)
    : QAbstractButton(parent), m_kind(kind), m_symbol(symbol)
{
    setText(text);
    setFont(labelFont());
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (isWithinText())
        setCursor(Qt::PointingHandCursor);
}

Button *Button::makeIcon(const QString &symbol, const QString &name, int extent)
{
    auto *button = new Button({}, Kind::Plain, symbol);
    button->m_extent = extent;
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

Button *Button::makeRow(const QString &text, const QString &symbol)
{
    auto *button = new Button(text, Kind::Plain, symbol);
    button->m_isRow = true;
    button->setFont(button->labelFont());
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return button;
}

void Button::setCurrent(bool isCurrent)
{
    if (m_isCurrent == isCurrent)
        return;
    m_isCurrent = isCurrent;
    setFont(labelFont());
    update();
}

void Button::setSymbol(const QString &symbol, SymbolSide side)
{
    m_symbol = symbol;
    m_side = side;
    updateGeometry();
    update();
}

void Button::setLarge()
{
    m_isLarge = true;
    setFont(labelFont());
    updateGeometry();
}

void Button::setHint(const QString &hint, const QString &shortcut)
{
    setToolTip(shortcut.isEmpty() ? hint : QString("%1 (%2)").arg(hint, shortcut));
    if (m_extent > 0)
        setAccessibleName(hint);
}

QFont Button::labelFont() const
{
    const AppTheme &theme = AppTheme::instance();
    if (m_isRow)
        return theme.font(m_isCurrent ? TextStyle::Strong : TextStyle::Body);
    if (m_isLarge)
        return theme.font(14, QFont::DemiBold);
    const bool isStrong = m_kind != Kind::Bordered && m_kind != Kind::Plain && m_kind != Kind::Disclosure;
    return theme.font(isStrong ? TextStyle::Strong : TextStyle::Medium);
}

int Button::padding() const
{
    if (isWithinText())
        return 2;
    return m_isLarge ? 19 : m_isRow ? 9 : 13;
}

QSize Button::sizeHint() const
{
    if (m_extent > 0)
        return {m_extent, m_extent};
    const QFontMetricsF metrics(font());
    qreal width = 2 * padding() + metrics.horizontalAdvance(text());
    if (!m_symbol.isEmpty())
        width += symbolExtent + (text().isEmpty() ? 0 : gap);
    const int height = m_isLarge ? 39 : m_isRow ? 34 : isWithinText() ? 22 : 30;
    const int needed = static_cast<int>(std::ceil(metrics.height())) + (isWithinText() ? 4 : 12);
    return {static_cast<int>(std::ceil(width)), std::max(height, needed)};
}

Button::Look Button::filledLook(Role role) const
{
    if (!isEnabled())
        return {themeColor(Role::Line), Qt::transparent, themeColor(Role::Dim)};
    const QColor base = themeColor(role);
    const QColor fill = isDown() ? base.darker(118) : underMouse() ? base.darker(108) : base;
    return {fill, Qt::transparent, themeColor(Role::OnAccent)};
}

Button::Look Button::borderedLook(bool isHovered) const
{
    const QColor paper = themeColor(Role::Paper);
    return {isHovered ? shaded(paper, isDown() ? 110 : 104) : paper,
            themeColor(isEnabled() ? Role::Outline : Role::Line), themeColor(isEnabled() ? Role::Text : Role::Faint)};
}

Button::Look Button::rowLook(bool isHovered) const
{
    if (m_isCurrent)
        return {themeColor(Role::AccentSoft), Qt::transparent, themeColor(Role::AccentText)};
    return {isHovered ? themeColor(Role::Hover) : QColor(Qt::transparent), Qt::transparent,
            themeColor(isEnabled() ? Role::Text : Role::Faint)};
}

Button::Look Button::plainLook(bool isHovered) const
{
    if (m_isRow)
        return rowLook(isHovered);
    const Role ink = !isEnabled() ? Role::Faint : isHovered ? Role::Text : Role::Dim;
    return {isHovered ? themeColor(Role::Hover) : QColor(Qt::transparent), Qt::transparent, themeColor(ink)};
}

Button::Look Button::look() const
{
    const bool isHovered = isEnabled() && (underMouse() || isDown());
    switch (m_kind) {
    case Kind::Prominent:
        return filledLook(Role::Accent);
    case Kind::Recording:
    case Kind::Destructive:
        return filledLook(Role::Recording);
    case Kind::Bordered:
        return borderedLook(isHovered);
    case Kind::Link: {
        const QColor ink = themeColor(Role::AccentText);
        return {Qt::transparent, Qt::transparent, isHovered ? shaded(ink, 120) : ink};
    }
    case Kind::Disclosure:
        return {Qt::transparent, Qt::transparent, themeColor(isHovered ? Role::Text : Role::Dim)};
    case Kind::Plain:
        break;
    }
    return plainLook(isHovered);
}

void Button::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const Look style = look();
    if (style.fill.alpha() > 0 || style.line.alpha() > 0)
        Drawing::panel(painter, rect(), radius(), style.fill, style.line);
    drawLabel(painter, style.ink);
    if (m_showsFocus)
        Drawing::focusRing(painter, rect(), radius(), isFilled() ? Drawing::RingOn::Fill : Drawing::RingOn::Surface);
}

bool Button::isFilled() const
{
    return m_kind == Kind::Prominent || m_kind == Kind::Recording || m_kind == Kind::Destructive;
}

void Button::drawLabel(QPainter &painter, const QColor &ink) const
{
    if (isSymbolAlone()) {
        const QPointF corner((width() - symbolExtent) / 2.0, (height() - symbolExtent) / 2.0);
        Symbols::draw(painter, m_symbol, {corner, QSizeF(symbolExtent, symbolExtent)}, ink);
        return;
    }
    const QFontMetricsF metrics(font(), painter.device());
    const qreal forSymbol = m_symbol.isEmpty() ? 0 : symbolExtent + gap;
    const qreal textWidth = std::min(metrics.horizontalAdvance(text()), width() - 2.0 * padding() - forSymbol);
    qreal left = m_isRow ? padding() : (width() - textWidth - forSymbol) / 2;
    if (m_kind == Kind::Disclosure)
        left -= 6; // The sign is narrow, and stands where the texts above it begin.
    const qreal symbolLeft = m_side == SymbolSide::Leading ? left : left + textWidth + gap;
    if (!m_symbol.isEmpty())
        Symbols::draw(painter, m_symbol, {symbolLeft, (height() - symbolExtent) / 2.0, symbolExtent, symbolExtent},
                      ink);
    if (m_side == SymbolSide::Leading)
        left += m_isRow && forSymbol > 0 ? forSymbol + 2 : forSymbol;
    painter.setFont(font());
    painter.setPen(ink);
    const QString shown = Drawing::fitted(text(), metrics, textWidth + 1);
    painter.drawText(QRectF(left, 0, textWidth + 2, height()), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     shown);
}

bool Button::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty())
        return QAbstractButton::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), hintText(toolTip()), this);
    return true;
}

void Button::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void Button::focusInEvent(QFocusEvent *event)
{
    const Qt::FocusReason reason = event->reason();
    const bool isReturning =
        reason == Qt::OtherFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    m_showsFocus = isReturning ? m_showedFocus : reason != Qt::MouseFocusReason;
    QAbstractButton::focusInEvent(event);
}

void Button::focusOutEvent(QFocusEvent *event)
{
    m_showedFocus = std::exchange(m_showsFocus, false);
    QAbstractButton::focusOutEvent(event);
}

} // namespace ardeno
