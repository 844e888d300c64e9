// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppStyle.h"

#include "ui/theme/Drawing.h"

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
        return 1;
    case PM_MenuVMargin:
        return 5;
    case PM_MenuHMargin:
        return 4;
    case PM_ToolTipLabelFrameWidth:
        return 5;
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
    const QRect slider = subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget).adjusted(2, 2, -2, -2);
    const bool isHeld = bar->state & (State_MouseOver | State_Sunken);
    Drawing::panel(*painter, slider, qMin(slider.width(), slider.height()) / 2.0,
                   themeColor(isHeld ? Role::Dim : Role::Faint), Qt::transparent);
}

void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    switch (element) {
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, themeColor(Role::Card));
        [[fallthrough]];
    case PE_FrameMenu:
        for (const Qt::Edge edge : {Qt::TopEdge, Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge})
            Drawing::edge(*painter, option->rect, edge, themeColor(Role::Line));
        return;
    case PE_FrameFocusRect:
        return; // Controls and delegates draw their own.
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

} // namespace ardeno
