// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/ScrollBarUse.h"

#include "ui/theme/AppTheme.h"

#include <QEvent>
#include <QScrollBar>

namespace ardeno {

ScrollBarUse::ScrollBarUse(QScrollBar *bar) : QObject(bar), m_bar(bar)
{
    constexpr std::chrono::milliseconds seenAfterUse(1500);
    m_rest.setSingleShot(true);
    m_rest.setInterval(seenAfterUse);
    connect(&m_rest, &QTimer::timeout, bar, qOverload<>(&QWidget::update));
    connect(bar, &QScrollBar::valueChanged, this, &ScrollBarUse::show);
    // The bar's own pointer, and that over what it scrolls.
    bar->installEventFilter(this);
    for (QWidget *around = bar->parentWidget(); around && !around->isWindow(); around = around->parentWidget()) {
        if (around->inherits("QAbstractScrollArea")) {
            around->setAttribute(Qt::WA_Hover);
            around->installEventFilter(this);
            break;
        }
    }
}

ScrollBarUse &ScrollBarUse::of(QScrollBar *bar)
{
    auto *use = bar->findChild<ScrollBarUse *>({}, Qt::FindDirectChildrenOnly);
    return use ? *use : *new ScrollBarUse(bar);
}

bool ScrollBarUse::isShown() const
{
    const bool movesWindow = m_bar->parentWidget() && m_bar->parentWidget()->isWindow(); // Nobody expects that.
    return movesWindow || m_rest.isActive() || m_bar->underMouse() || m_bar->isSliderDown() ||
           AppTheme::instance().appearance().contrast == Contrast::High;
}

void ScrollBarUse::show()
{
    m_rest.start();
    m_bar->update();
}

bool ScrollBarUse::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMove = event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter;
    if (isMove || event->type() == QEvent::Enter)
        show();
    return QObject::eventFilter(watched, event);
}

} // namespace ardeno
