// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

#include <functional>

namespace ardeno {

// A list without frame and background, whose rows a delegate draws. One click or Return activates a row; the menu key
// and the right button ask for its menu.
class PlainList : public QListView {
public:
    explicit PlainList(const QString &name, QWidget *parent = nullptr);

    void setOnActivate(std::function<void(const QModelIndex &)> activated) { m_activated = std::move(activated); }

    void setOnMenu(std::function<void(const QModelIndex &, const QPoint &)> menu) { m_menu = std::move(menu); }

    // By the key; whoever is told asks before anything goes.
    void setOnDelete(std::function<void(const QModelIndex &)> deleted) { m_deleted = std::move(deleted); }

    // Makes the row the current one without activating it, and shows it.
    void showCurrent(int row);

    // Whether the keyboard was used last: only then is the focus drawn.
    bool showsFocus() const { return m_showsFocus && hasFocus(); }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

    void activate(const QModelIndex &index);

private:
    std::function<void(const QModelIndex &)> m_activated;
    std::function<void(const QModelIndex &, const QPoint &)> m_menu;
    std::function<void(const QModelIndex &)> m_deleted;
    QPersistentModelIndex m_pressed; // A click ends where it began.
    bool m_showsFocus = false;
};

// What a delegate needs to know of the row it draws.
struct RowState {
    bool isSelected = false;
    bool isHovered = false;
    bool showsFocus = false;

    static RowState of(const QStyleOptionViewItem &option);
};

} // namespace ardeno
