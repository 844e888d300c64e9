// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/PlainList.h"
#include "ui/items/ApplicationIcons.h"
#include "ui/items/ItemModel.h"

#include <QPersistentModelIndex>

namespace ardeno {

class Button;

// Draws an item: icon, title, what is below it and at the right, and the mark of its button.
class ItemDelegate final : public QStyledItemDelegate {
public:
    enum class Lines { One, Two };
    enum class Removal { None, Button };

    ItemDelegate(ApplicationIcons &icons, Lines lines, Removal removal, QObject *parent)
        : QStyledItemDelegate(parent), m_icons(icons), m_lines(lines), m_removal(removal)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    int rowHeight() const;
    // Where the row's button is.
    static QRect buttonPlace(const QRect &row);

private:
    void paintTexts(QPainter *painter, QRectF area, const ItemRow &row) const;

    ApplicationIcons &m_icons;
    Lines m_lines;
    Removal m_removal;
};

// A list as tall as its rows; the page around it scrolls. The row below the pointer, or the one that the keyboard is
// at, has a button that removes it, as the delete key does.
class ItemList final : public PlainList {
public:
    using Act = std::function<void(const QModelIndex &)>;

    // The list stands on the card, with the button above it.
    ItemList(const QString &name, ItemModel &model, ItemDelegate *delegate, QWidget *card);

    using Say = std::function<QString(const QModelIndex &)>;

    // What screen readers call the button of a row, and its tooltip.
    void setOnRemove(Say name, Say hint, Act remove);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return {120, sizeHint().height()}; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    // The page scrolls, not the list.
    void wheelEvent(QWheelEvent *event) override;
    void scrollTo(const QModelIndex &index, ScrollHint hint) override;

private:
    QRect placeOfButton(const QModelIndex &index) const;
    void placeButton(const QModelIndex &index);
    void afterChange();
    void removeRow(const QModelIndex &index);

    ItemModel &m_model;
    ItemDelegate *m_delegate;
    QPointer<Button> m_button;
    QPersistentModelIndex m_buttonRow;
    Say m_removeName;
    Say m_removeHint;
    Act m_remove;
};

} // namespace ardeno
