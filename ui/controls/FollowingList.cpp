// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FollowingList.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <utility>

namespace ardeno {

namespace {

constexpr int rest = 200; // Milliseconds: longer than between two presses on the way to another row.

} // namespace

FollowingList::FollowingList(const QString &name, QWidget *parent) : PlainList(name, parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(rest);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (currentIndex().isValid() && currentIndex() != m_chosen)
            activate(currentIndex());
    });
}

void FollowingList::showChosen(int row)
{
    const QModelIndex index = row < 0 ? QModelIndex() : model()->index(row, 0);
    const bool isShown = index.isValid() ? selectionModel()->isSelected(index) : !selectionModel()->hasSelection();
    const bool isPlaced = std::exchange(m_chosenRow, row) == row;
    if (isShown && index == m_chosen) {
        if (!isPlaced && index.isValid())
            scrollTo(index);
        return;
    }
    m_pause.stop();
    m_chosen = index;
    const QScopedValueRollback showing(m_isShowing, true);
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    } else {
        clearSelection();
    }
}

void FollowingList::settle()
{
    if (!m_pause.isActive())
        return;
    m_pause.stop();
    if (currentIndex().isValid() && currentIndex() != m_chosen)
        activate(currentIndex());
}

void FollowingList::goToFirst()
{
    if (!model() || model()->rowCount() == 0)
        return;
    selectionModel()->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
    setFocus(Qt::TabFocusReason);
}

QItemSelectionModel::SelectionFlags FollowingList::selectionCommand(const QModelIndex &, const QEvent *) const
{
    return QItemSelectionModel::NoUpdate;
}

void FollowingList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    PlainList::selectionChanged(selected, deselected);
    if (!m_isShowing && !selected.isEmpty()) // A screen reader selects.
        QMetaObject::invokeMethod(this, [this] { followSelection(); }, Qt::QueuedConnection);
}

void FollowingList::followSelection()
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.size() == 1 && selected.first() != m_chosen)
        activate(selected.first());
}

bool FollowingList::event(QEvent *event)
{
    // What a shortcut is about is the row that the user sees to be at.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
            settle();
    }
    return PlainList::event(event);
}

void FollowingList::keyPressEvent(QKeyEvent *event)
{
    const QPersistentModelIndex before = currentIndex();
    PlainList::keyPressEvent(event);
    if (currentIndex().isValid() && currentIndex() != before)
        m_pause.start();
}

void FollowingList::mousePressEvent(QMouseEvent *event)
{
    m_pause.stop();
    if (event->button() == Qt::LeftButton)
        PlainList::mousePressEvent(event);
    else
        event->accept(); // A menu is about the row it was asked for at, which is not gone to.
}

void FollowingList::mouseReleaseEvent(QMouseEvent *event)
{
    PlainList::mouseReleaseEvent(event);
    returnToChosen();
}

void FollowingList::returnToChosen()
{
    const bool isScrolling = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(m_chosen, QItemSelectionModel::NoUpdate);
    setAutoScroll(isScrolling);
}

void FollowingList::focusOutEvent(QFocusEvent *event)
{
    PlainList::focusOutEvent(event);
    settle();
}

} // namespace ardeno
