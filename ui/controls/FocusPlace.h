// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

namespace ardeno {

// Where the keys were, to go back to: the control, or what is left around it when it has gone meanwhile.
class FocusPlace final {
public:
    // Null: nowhere.
    explicit FocusPlace(QWidget *control);

    // Controls within that the tab key reaches, in its order.
    static QList<QWidget *> controls(const QWidget *within);

    // False: nothing is left that takes the keys.
    bool restore() const;

private:
    QList<QPointer<QWidget>> m_path = {}; // From the control outwards, without its window.
};

} // namespace ardeno
