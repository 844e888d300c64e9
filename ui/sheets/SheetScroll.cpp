// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheets/SheetScroll.h"

#include <QEvent>
#include <QLayout>

namespace ardeno {

SheetScroll::SheetScroll(QWidget *content)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    content->installEventFilter(this);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize SheetScroll::sizeHint() const
{
    return widget()->sizeHint();
}

QSize SheetScroll::minimumSizeHint() const
{
    return {widget()->minimumSizeHint().width(), 80};
}

int SheetScroll::heightForWidth(int width) const
{
    const QLayout *const layout = widget()->layout();
    return layout->hasHeightForWidth() ? layout->heightForWidth(width) : widget()->sizeHint().height();
}

bool SheetScroll::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace ardeno
