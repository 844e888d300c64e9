// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/InputWatch.h"

#include "ui/controls/Sheet.h"
#include "ui/controls/TextKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace ardeno {

namespace {

constexpr int pauseInWriting = 1000; // Milliseconds.

Sheet *sheetOf(QWidget *widget)
{
    for (QWidget *above = widget; above; above = above->parentWidget()) {
        if (auto *const sheet = dynamic_cast<Sheet *>(above))
            return sheet;
    }
    return nullptr;
}

bool takesTab(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
}

// Of the controls within, in the order of the tab key: the one behind what vanishes, else the one before.
QWidget *besideWithin(const QWidget *within, const QWidget *vanishing)
{
    QWidget *before = nullptr;
    bool isBehind = false;
    for (QWidget *next = within->nextInFocusChain(); next && next != within; next = next->nextInFocusChain()) {
        const bool isGoing = next == vanishing || vanishing->isAncestorOf(next);
        isBehind = isBehind || isGoing;
        if (isGoing || !within->isAncestorOf(next) || !takesTab(next))
            continue;
        if (isBehind)
            return next;
        before = next;
    }
    return before;
}

// In the smallest part of the window that has one; null: in no part of its sheet or window.
QWidget *neighbourOf(const QWidget *vanishing)
{
    for (QWidget *around = vanishing->parentWidget(); around; around = around->parentWidget()) {
        if (QWidget *const beside = besideWithin(around, vanishing))
            return beside;
        if (takesTab(around))
            return around;
        if (around->isWindow() || dynamic_cast<Sheet *>(around))
            break;
    }
    return nullptr;
}

} // namespace

InputWatch::InputWatch(QObject *application) : QObject(application)
{
    application->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &InputWatch::keepPlace);
}

InputWatch &InputWatch::instance()
{
    static QPointer<InputWatch> watch;
    if (!watch)
        watch = new InputWatch(qApp);
    return *watch;
}

bool InputWatch::isWriting() const
{
    return m_written.isValid() && m_written.elapsed() < pauseInWriting;
}

void InputWatch::whenPaused(QObject *context, const std::function<void()> &then)
{
    if (!isWriting()) {
        then();
        return;
    }
    const auto left = static_cast<int>(pauseInWriting - m_written.elapsed());
    QTimer::singleShot(left + 1, context, [this, context, then] { whenPaused(context, then); });
}

void InputWatch::keepPlace(QWidget *before, QWidget *now)
{
    if (m_isParking)
        return;
    if (!before || before->isEnabled() || before->isHidden()) {
        if (now && now != m_parked)
            m_waiting = nullptr;
        return;
    }
    const QScopedValueRollback parking(m_isParking, true);
    m_waiting = before;
    m_parked = sheetOf(before);
    if (m_parked && m_parked->isEnabled())
        m_parked->setFocus(Qt::OtherFocusReason);
    else if (now && now->window() == before->window())
        now->clearFocus();
}

void InputWatch::returnToPlace()
{
    const QPointer<QWidget> place = std::exchange(m_waiting, nullptr);
    const QWidget *const focused = place->window()->focusWidget();
    if (!focused || focused == m_parked)
        place->setFocus(Qt::OtherFocusReason);
}

void InputWatch::leaveVanishing(const QWidget *vanishing)
{
    const QWidget *const focused = QApplication::focusWidget();
    // With its window or its parent it comes back, and sheets know who had the focus before.
    const bool isSheet = dynamic_cast<const Sheet *>(vanishing) || dynamic_cast<const SheetHost *>(vanishing);
    const bool isPart = focused && vanishing->isHidden() && !vanishing->isWindow() && !isSheet;
    if (!isPart || (focused != vanishing && !vanishing->isAncestorOf(focused)))
        return;
    if (QWidget *const neighbour = neighbourOf(vanishing))
        neighbour->setFocus(Qt::OtherFocusReason);
}

void InputWatch::noteKey(QWidget *focused, QEvent *event)
{
    const auto *const key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
    if (key && TextKeys::isModifierAlone(*key))
        return;
    m_isByKeys = true;
    if (!key || TextKeys::isWriting(*key, focused))
        m_written.start();
    else
        m_written.invalidate();
}

bool InputWatch::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isByKeys = false;
        m_written.invalidate();
        break;
    case QEvent::KeyPress:
    case QEvent::InputMethod:
        if (watched == QApplication::focusWidget())
            noteKey(QApplication::focusWidget(), event);
        break;
    case QEvent::Hide:
        if (const auto *const widget = qobject_cast<QWidget *>(watched))
            leaveVanishing(widget);
        break;
    case QEvent::EnabledChange:
        if (m_waiting && watched == m_waiting && m_waiting->isEnabled())
            returnToPlace();
        break;
    default:
        break;
    }
    return false;
}

} // namespace ardeno
