// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/Button.h"

#include <QMenu>

#include <functional>

namespace ardeno {

// A menu in the theme's colours. It deletes itself when it closes.
QMenu *makeMenu(QWidget *parent);

QAction *addMenuItem(QMenu *menu, const QString &text, const QString &symbol, std::function<void()> chosen);

// Opens a menu at this place of the screen, unless nothing was filled in.
void showMenu(QWidget *owner, const QPoint &place, const std::function<void(QMenu *)> &fill);

// Pressing the button (or Return on it) opens the menu below it; the menu is filled anew each time.
void setMenu(Button *button, std::function<void(QMenu *)> fill);

// Shift+F10 asks for the menu of what has the focus in this window, as the menu key does.
void openMenusByKey(QWidget *window);

} // namespace ardeno
