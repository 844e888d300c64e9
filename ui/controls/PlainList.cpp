// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/PlainList.h"

#include "ui/controls/InputWatch.h"
#include "ui/controls/TextKeys.h"
#include "ui/theme/AppTheme.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace ardeno {

PlainList::PlainList(const QString &name, QWidget *parent) : QListView(parent)
{
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
    setTabKeyNavigation(false);
    QPalette own; // Only its background is its own, the rest follows the window.
    own.setColor(QPalette::Base, Qt::transparent);
    setPalette(own);
}

void PlainList::showCurrent(int row)
{
    if (row < 0) {
        clearSelection();
        setCurrentIndex({});
        return;
    }
    const QModelIndex index = model()->index(row, 0);
    if (index == currentIndex() && selectionModel()->isSelected(index))
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void PlainList::keyPressEvent(QKeyEvent *event)
{
    m_showsFocus = m_showsFocus || !TextKeys::isModifierAlone(*event);
    const bool isPress =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    const bool isDelete = event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier;
    if (isPress && currentIndex().isValid() && m_activated)
        activate(currentIndex());
    else if (isDelete && currentIndex().isValid() && m_deleted)
        m_deleted(currentIndex());
    else
        QListView::keyPressEvent(event);
    viewport()->update();
}

void PlainList::activate(const QModelIndex &index)
{
    if (m_activated)
        m_activated(index);
}

void PlainList::mousePressEvent(QMouseEvent *event)
{
    m_showsFocus = false;
    m_pressed = event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()) : QModelIndex();
    QListView::mousePressEvent(event);
}

void PlainList::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()) : QModelIndex();
    QListView::mouseDoubleClickEvent(event);
}

void PlainList::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    const QPersistentModelIndex pressed = std::exchange(m_pressed, QPersistentModelIndex());
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && index == pressed)
        activate(index);
}

void PlainList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid() || !m_menu)
        return;
    const QPoint place = isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    m_menu(index, place);
}

void PlainList::focusInEvent(QFocusEvent *event)
{
    m_showsFocus = event->reason() != Qt::MouseFocusReason && InputWatch::instance().isByKeys();
    if (!currentIndex().isValid() && model() && model()->rowCount() > 0 && m_showsFocus)
        selectionModel()->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
    QListView::focusInEvent(event);
    viewport()->update();
}

RowState RowState::of(const QStyleOptionViewItem &option)
{
    const auto *const list = qobject_cast<const QListView *>(option.widget);
    const auto *const plain = dynamic_cast<const PlainList *>(list);
    return {
        .isSelected = option.state.testFlag(QStyle::State_Selected),
        .isHovered = option.state.testFlag(QStyle::State_MouseOver),
        .showsFocus = plain && plain->showsFocus() && option.state.testFlag(QStyle::State_HasFocus),
    };
}

} // namespace ardeno
