// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QScrollBar;

namespace ardeno {

// Whether a scroll bar is in use: the pointer is over it, or it was moved a moment ago. Only then it is drawn, unless
// high contrast is asked for.
class ScrollBarUse final : public QObject {
    Q_OBJECT

public:
    static ScrollBarUse &of(QScrollBar *bar);

    bool isShown() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit ScrollBarUse(QScrollBar *bar);

    void show();

    QScrollBar *m_bar;
    QTimer m_rest;
};

} // namespace ardeno
