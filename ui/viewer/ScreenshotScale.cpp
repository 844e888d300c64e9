// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/viewer/ScreenshotScale.h"

#include <algorithm>

namespace ardeno {

double ScreenshotScale::fit(const QSizeF &content, const QSize &pixels)
{
    const double wide = (content.width() - 2 * margin) / std::max(1, pixels.width());
    const double high = (content.height() - 2 * margin) / std::max(1, pixels.height());
    return std::clamp(std::min(wide, high), least, 1.0);
}

double ScreenshotScale::base(double zoom, const QSizeF &content, const QSize &pixels)
{
    return zoom == fitting ? fit(content, pixels) : zoom;
}

double ScreenshotScale::inUse(double zoom, double magnification, const QSizeF &content, const QSize &pixels)
{
    return std::clamp(base(zoom, content, pixels) * magnification, least, most);
}

double ScreenshotScale::zoomedIn(double scale, double factor)
{
    return std::clamp(scale * factor, least, most);
}

double ScreenshotScale::zoomedOut(double scale)
{
    return zoomedIn(scale, 1 / step);
}

double ScreenshotScale::toggled(double zoom)
{
    return zoom == actual ? fitting : actual;
}

int ScreenshotScale::percent(double scale)
{
    // 0.29 * 100 is a little less than 29.
    return static_cast<int>(scale * 100 + 1e-9);
}

} // namespace ardeno
