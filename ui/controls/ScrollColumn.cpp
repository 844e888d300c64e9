// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/ScrollColumn.h"

namespace ardeno {

namespace {

constexpr int barRoom = 14; // Beside the contents, whether there is a bar or not.

} // namespace

ScrollColumn::ScrollColumn(int spacing, QWidget *parent) : QScrollArea(parent), m_column(new QVBoxLayout)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // Drawn only when needed; the contents keep their width.
    setFocusPolicy(Qt::NoFocus);
    auto *page = new QWidget;
    page->setLayout(m_column);
    m_column->setContentsMargins(0, 0, barRoom - 10, 0);
    m_column->setSpacing(spacing);
    setWidget(page);
    viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
}

int ScrollColumn::heightForWidth(int width) const
{
    return m_column->totalHeightForWidth(width - 10);
}

QSize ScrollColumn::sizeHint() const
{
    return {m_column->totalSizeHint().width() + 10, m_column->totalSizeHint().height()};
}

QSize ScrollColumn::minimumSizeHint() const
{
    return {0, 120};
}

} // namespace ardeno
