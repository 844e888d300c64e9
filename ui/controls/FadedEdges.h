// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/theme/AppTheme.h"

#include <QWidget>

class QAbstractScrollArea;

namespace ardeno {

// Lets what a scroll area cuts off fade into its background, at every edge behind which there is more.
class FadedEdges final : public QWidget {
public:
    FadedEdges(QAbstractScrollArea *area, Role background);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isMoreAt(Qt::Edge edge) const;
    void showEdges();

    QAbstractScrollArea *m_area;
    Role m_background;
};

} // namespace ardeno
