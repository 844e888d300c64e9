// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QIcon>
#include <QPainter>
#include <QString>

namespace ardeno::Symbols {

// Draws the symbol of that name, tinted, into the middle of a square. Sharp at every scale of the screen; what was
// drawn once is kept. A name that does not exist is a fault of the program and draws nothing.
void draw(QPainter &painter, const QString &name, const QRectF &square, const QColor &color);

bool exists(const QString &name);

// For menus, tinted when it is drawn.
QIcon icon(const QString &name, Role role = Role::Text);

// The application's mark, a rounded square with a line. The symbol "brand" is the same in one colour, with the line cut
// out.
void drawBrandMark(QPainter &painter, const QRectF &square, const QColor &mark, const QColor &background);
QIcon brandIcon();

} // namespace ardeno::Symbols
