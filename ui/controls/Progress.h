// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

namespace ardeno {

// Something is being done, nobody knows for how long. With reduced motion it stands still.
class Progress final : public QWidget {
public:
    explicit Progress(const QString &name, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QTimer m_turn;
    int m_step = 0;
};

} // namespace ardeno
