// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/MenuDrawing.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/Symbols.h"

#include <algorithm>

namespace ardeno {

namespace {

constexpr int itemPadding = 10;
constexpr int iconRoom = 16 + 9;
constexpr int shortcutGap = 26;
constexpr int separatorHeight = 9;

// Every row leaves the room that one of them needs, so that the texts stand below each other.
int leading(const QStyleOptionMenuItem &item)
{
    return itemPadding + (item.maxIconWidth > 0 ? iconRoom : 0) + (item.menuHasCheckableItems ? iconRoom : 0);
}

void drawMarks(QPainter &painter, const QStyleOptionMenuItem &item, const QColor &ink)
{
    QRectF mark(item.rect.left() + itemPadding, item.rect.center().y() - 7, 16, 16);
    if (item.menuHasCheckableItems) {
        if (item.checked)
            Symbols::draw(painter, "checkmark", mark, ink);
        mark.translate(iconRoom, 0);
    }
    const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
    if (!item.icon.isNull())
        item.icon.paint(&painter, mark.toRect(), Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
}

} // namespace

void MenuDrawing::item(QPainter &painter, const QStyleOptionMenuItem &item)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        const QRectF middle(item.rect.left() + itemPadding, item.rect.center().y(), item.rect.width() - 2 * itemPadding,
                            1);
        Drawing::edge(painter, middle, Qt::TopEdge, themeColor(Role::Line));
        return;
    }
    const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
    const bool isChosen = isEnabled && item.state.testFlag(QStyle::State_Selected);
    if (isChosen)
        Drawing::panel(painter, item.rect, 6, themeColor(Role::AccentSoft), Qt::transparent);
    const QColor ink = themeColor(!isEnabled ? Role::Faint : isChosen ? Role::AccentText : Role::Text);
    drawMarks(painter, item, ink);
    const qsizetype tab = item.text.indexOf('\t');
    const QRect area = item.rect.adjusted(leading(item), 0, -itemPadding, 0);
    painter.setFont(item.font);
    painter.setPen(ink);
    constexpr int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic;
    painter.drawText(area, Qt::AlignLeft | flags, tab < 0 ? item.text : item.text.left(tab));
    if (tab < 0)
        return;
    painter.setPen(themeColor(!isEnabled ? Role::Faint : isChosen ? Role::AccentText : Role::Dim));
    painter.drawText(area, Qt::AlignRight | flags, item.text.mid(tab + 1));
}

QSize MenuDrawing::itemSize(const QStyleOptionMenuItem &item, const QSize &text)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {2 * itemPadding, separatorHeight};
    const bool hasShortcut = item.text.contains('\t');
    const int width = leading(item) + QFontMetrics(item.font).horizontalAdvance(item.text.section('\t', 0, 0)) +
                      itemPadding + (hasShortcut ? shortcutGap : 0);
    return {std::max(width, text.width() + leading(item) + itemPadding), std::max(30, text.height() + 12)};
}

} // namespace ardeno
