// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QRect;
class QWidget;

namespace ardeno {

// Gives a window the size and the place that it had last, and remembers every other one. Whenever it appears, and when
// the screens change, it is brought within one.
class WindowPlace final : public QObject {
public:
    // Before the window is shown first.
    explicit WindowPlace(QWidget &window);
    ~WindowPlace() override;

    // The frame as far as possible as it is, and nowhere beside the area.
    static QRect within(QRect frame, const QRect &area);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void limit();
    void fitAgain();
    void keepWithin();
    void remember();

    QWidget &m_window;
    QTimer m_rest; // Until the window has come to rest.
    bool m_wasShown = false;
    bool m_isToFit = false;
};

} // namespace ardeno
