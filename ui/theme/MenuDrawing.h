// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QStyleOptionMenuItem>

// The rows of menus.
namespace ardeno::MenuDrawing {

void item(QPainter &painter, const QStyleOptionMenuItem &item);

// Text is the size of what is written, without the shortcut.
QSize itemSize(const QStyleOptionMenuItem &item, const QSize &text);

} // namespace ardeno::MenuDrawing
