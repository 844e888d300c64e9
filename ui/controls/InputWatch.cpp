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
