// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/InputWatch.h"

#include "ui/controls/TextKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace ardeno {

namespace {

constexpr int pauseInWriting = 1000; // Milliseconds.

} // namespace

InputWatch::InputWatch(QObject *application) : QObject(application)
{
    application->installEventFilter(this);
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

bool InputWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        m_isByKeys = false;
        m_written.invalidate();
        return false;
    }
    const bool isKey = event->type() == QEvent::KeyPress;
    QWidget *const focused = QApplication::focusWidget();
    if ((!isKey && event->type() != QEvent::InputMethod) || watched != focused)
        return false;
    if (isKey && TextKeys::isModifierAlone(*static_cast<QKeyEvent *>(event)))
        return false;
    m_isByKeys = true;
    if (!isKey || TextKeys::isWriting(*static_cast<QKeyEvent *>(event), focused))
        m_written.start();
    else
        m_written.invalidate();
    return false;
}

} // namespace ardeno
