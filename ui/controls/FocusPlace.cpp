// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/FocusPlace.h"

namespace ardeno {

FocusPlace::FocusPlace(QWidget *control)
{
    for (QWidget *around = control; around && !around->isWindow(); around = around->parentWidget())
        m_path.append(around);
}

QList<QWidget *> FocusPlace::controls(const QWidget *within)
{
    QList<QWidget *> found;
    for (QWidget *next = within->nextInFocusChain(); next && next != within; next = next->nextInFocusChain()) {
        if (within->isAncestorOf(next) && next->isVisible() && next->isEnabled() &&
            (next->focusPolicy() & Qt::TabFocus))
            found.append(next);
    }
    return found;
}

bool FocusPlace::restore() const
{
    if (!m_path.isEmpty() && m_path.first() && m_path.first()->isVisible()) {
        m_path.first()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    for (const QPointer<QWidget> &around : m_path) {
        const QList<QWidget *> left = around && around->isVisible() ? controls(around) : QList<QWidget *>();
        if (left.isEmpty())
            continue;
        left.first()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

} // namespace ardeno
