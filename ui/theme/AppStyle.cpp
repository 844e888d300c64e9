// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppStyle.h"

#include "ui/theme/Drawing.h"
#include "ui/theme/MenuDrawing.h"
#include "ui/theme/PopupSurface.h"
#include "ui/theme/ScrollBarUse.h"

#include <QMenu>
#include <QScrollBar>
#include <QStyleOptionSlider>

namespace ardeno {

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return 10;
    case PM_ScrollBarSliderMin:
        return 32;
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuVMargin:
    case PM_MenuHMargin:
        return PopupSurface::menuMargin + 5;
    case PM_SmallIconSize:
        return 16;
    case PM_ToolTipLabelFrameWidth:
        return PopupSurface::tipMargin + 6;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget, QStyleHintReturn *data) const
{
    const bool isCalm = AppTheme::instance().appearance().motion == Motion::Reduced;
    if (hint == SH_Widget_Animation_Duration)
        return isCalm ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    if (hint == SH_Menu_SubMenuPopupDelay)
        return 100;
    // Drawn over what they scroll while they are used, and take no room from it.
    if (hint == SH_ScrollBar_Transient)
        return AppTheme::instance().appearance().contrast == Contrast::High ? 0 : 1;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect AppStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                               const QWidget *widget) const
{
    const auto *const bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    // No arrows: the groove is the whole bar.
    const bool isUpright = bar->orientation == Qt::Vertical;
    const int length = isUpright ? bar->rect.height() : bar->rect.width();
    const qint64 range = qint64(bar->maximum) - bar->minimum;
    const qint64 page = bar->pageStep;
    const int least = pixelMetric(PM_ScrollBarSliderMin, option, widget);
    const int slider = range > 0 ? qMax(least, static_cast<int>(length * page / (range + page))) : length;
    const int start =
        sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - slider, bar->upsideDown);
    const auto along = [&](int from, int extent) {
        return isUpright ? QRect(bar->rect.x(), bar->rect.y() + from, bar->rect.width(), extent)
                         : QRect(bar->rect.x() + from, bar->rect.y(), extent, bar->rect.height());
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return along(start, slider);
    case SC_ScrollBarSubPage:
        return along(0, start);
    case SC_ScrollBarAddPage:
        return along(start + slider, length - start - slider);
    case SC_ScrollBarGroove:
        return bar->rect;
    default:
        return {};
    }
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                  const QWidget *widget) const
{
    const auto *const bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum)
        return;
    const auto *const scrollBar = qobject_cast<const QScrollBar *>(widget);
    if (scrollBar && !ScrollBarUse::of(const_cast<QScrollBar *>(scrollBar)).isShown())
        return;
    const bool isHeld = bar->state & (State_MouseOver | State_Sunken);
    const int inset = isHeld ? 2 : 3;
    const QRect slider =
        subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget).adjusted(inset, inset, -inset, -inset);
    Drawing::panel(*painter, slider, qMin(slider.width(), slider.height()) / 2.0,
                   themeColor(isHeld ? Role::Dim : Role::Faint), Qt::transparent);
}

void AppStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    const auto *const item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_MenuItem && item)
        MenuDrawing::item(*painter, *item);
    else if (element != CE_MenuEmptyArea)
        QProxyStyle::drawControl(element, option, painter, widget);
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                 const QWidget *widget) const
{
    const auto *const item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    return type == CT_MenuItem && item ? MenuDrawing::itemSize(*item, size)
                                       : QProxyStyle::sizeFromContents(type, option, size, widget);
}

void AppStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu *>(widget) || widget->inherits("QTipLabel"))
        PopupSurface::of(widget);
    else if (auto *const bar = qobject_cast<QScrollBar *>(widget))
        ScrollBarUse::of(bar);
}

void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    switch (element) {
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        if (widget)
            PopupSurface::of(const_cast<QWidget *>(widget)).paint(*painter);
        return;
    case PE_FrameMenu:
    case PE_FrameFocusRect:
        return; // Controls and delegates draw their own.
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

} // namespace ardeno
