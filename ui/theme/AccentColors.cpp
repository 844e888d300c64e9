// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AccentColors.h"

#include <algorithm>
#include <cmath>

namespace ardeno {

namespace {

double linearShare(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminanceOf(const QColor &color)
{
    return 0.2126 * linearShare(color.redF()) + 0.7152 * linearShare(color.greenF()) +
           0.0722 * linearShare(color.blueF());
}

// So much of the way from one colour to the other.
QColor between(const QColor &from, const QColor &to, double share)
{
    const auto mixed = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

QColor covered(const QColor &background, const QColor &top)
{
    return between(background, QColor::fromRgb(top.rgb()), top.alphaF());
}

// The first step towards the other colour that has this contrast with all of these.
QColor readable(const QColor &color, const QColor &towards, std::initializer_list<QColor> grounds, double least)
{
    constexpr int steps = 50;
    for (int step = 0; step < steps; ++step) {
        const QColor tried = between(color, towards, double(step) / steps).toRgb();
        const QColor shown = QColor::fromRgb(tried.rgb());
        if (std::all_of(grounds.begin(), grounds.end(),
                        [&](const QColor &background) { return contrastBetween(shown, background) >= least; }))
            return shown;
    }
    return towards;
}

} // namespace

double contrastBetween(const QColor &a, const QColor &b)
{
    const auto [dark, light] = std::minmax({luminanceOf(a), luminanceOf(b)});
    return (light + 0.05) / (dark + 0.05);
}

AccentColors AccentColors::fitted(const QColor &chosen, const Grounds &grounds)
{
    const bool isDark = grounds.scheme == Scheme::Dark;
    constexpr double leastOnFill = 4.5;
    AccentColors colors;
    colors.fill = readable(chosen, Qt::black, {Qt::white}, leastOnFill);
    colors.soft = chosen;
    colors.soft.setAlpha(isDark ? 0x33 : 0x1a);
    colors.text = readable(
        chosen, isDark ? Qt::white : Qt::black,
        {grounds.paper, covered(grounds.paper, colors.soft), grounds.sidebar, covered(grounds.sidebar, colors.soft)},
        grounds.leastContrast);
    return colors;
}

} // namespace ardeno
