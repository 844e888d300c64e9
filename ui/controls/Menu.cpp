// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Menu.h"

#include "ui/theme/Symbols.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QShortcut>

namespace ardeno {

QMenu *makeMenu(QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setPalette(AppTheme::instance().palette());
    menu->setFont(AppTheme::instance().font(TextStyle::Body));
    return menu;
}

QAction *addMenuItem(QMenu *menu, const QString &text, const QString &symbol, std::function<void()> chosen)
{
    QAction *const action = symbol.isEmpty() ? menu->addAction(text) : menu->addAction(Symbols::icon(symbol), text);
    action->setShortcutVisibleInContextMenu(true);
    QObject::connect(action, &QAction::triggered, menu->parent(), std::move(chosen));
    return action;
}

void showMenu(QWidget *owner, const QPoint &place, const std::function<void(QMenu *)> &fill)
{
    QMenu *const menu = makeMenu(owner);
    fill(menu);
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(place);
}

void setMenu(Button *button, std::function<void(QMenu *)> fill)
{
    QObject::connect(button, &QAbstractButton::clicked, button, [button, fill = std::move(fill)] {
        showMenu(button, button->mapToGlobal(QPoint(0, button->height() + 4)), fill);
    });
}

void openMenusByKey(QWidget *window)
{
    auto *const keys = new QShortcut(Qt::SHIFT | Qt::Key_F10, window);
    QObject::connect(keys, &QShortcut::activated, window, [] {
        QWidget *const focused = QApplication::focusWidget();
        if (!focused)
            return;
        const QPoint place = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
        QApplication::sendEvent(focused, &asked);
    });
}

} // namespace ardeno
