// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

namespace ardeno {

// Something is being done, nobody knows for how long. With reduced motion it stands still.
class Progress final : public QWidget {
public:
    explicit Progress(const QString &name, QWidget *parent = nullptr);

    // Shows it while something goes on, but not for what is done within a moment.
    void setGoingOn(bool isGoingOn);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QTimer m_turn;
    QTimer m_patience;
    int m_step = 0;
};

} // namespace ardeno
