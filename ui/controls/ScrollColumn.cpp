// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/ScrollColumn.h"

#include "ui/controls/FadedEdges.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>

namespace ardeno {

ScrollColumn::ScrollColumn(int spacing, QWidget *parent) : QScrollArea(parent), m_column(new QVBoxLayout)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto *page = new QWidget;
    page->setLayout(m_column);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(spacing);
    setWidget(page);
    viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    // What gets the focus by a key is shown. By the mouse it is seen already, and must not move below the pointer.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && isAncestorOf(now) && QGuiApplication::mouseButtons() == Qt::NoButton)
            ensureWidgetVisible(now, 0, 12);
    });
    new FadedEdges(this, Role::Paper);
}

int ScrollColumn::heightForWidth(int width) const
{
    return m_column->hasHeightForWidth() ? m_column->totalHeightForWidth(width) : m_column->totalSizeHint().height();
}

QSize ScrollColumn::sizeHint() const
{
    return m_column->totalSizeHint();
}

bool ScrollColumn::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize ScrollColumn::minimumSizeHint() const
{
    return {0, std::min(120, m_column->totalSizeHint().height())};
}

} // namespace ardeno
