// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <functional>

namespace ardeno::bench {

// Notes when a widget is painted for the first time.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget *watched) { watched->installEventFilter(this); }

    bool isPainted() const { return m_isPainted; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_isPainted = false;
};

inline void spinUntil(const std::function<bool()> &condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
}

} // namespace ardeno::bench
