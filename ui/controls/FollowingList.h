// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/controls/PlainList.h"

#include <QPersistentModelIndex>
#include <QTimer>

namespace ardeno {

// A list that shows a choice made elsewhere. That alone is selected, for eyes and screen readers; the row that the
// keyboard is at has a ring, and is activated when the keyboard rests there.
class FollowingList : public PlainList {
public:
    explicit FollowingList(const QString &name, QWidget *parent = nullptr);

    // The row that was chosen; -1: none.
    void showChosen(int row);

    // Activates the row that the keyboard is at, if that waits for a pause.
    void settle();

    // Goes to the first row by the keyboard, without activating it.
    void goToFirst();

protected:
    // Nothing that happens in the list selects by itself.
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

    // The keyboard goes on from what is chosen, as after a drag.
    void returnToChosen();

private:
    void followSelection();

    QPersistentModelIndex m_chosen;
    int m_chosenRow = -1; // Where it was when it was shown last.
    QTimer m_pause{this};
    bool m_isShowing = false;
};

} // namespace ardeno
