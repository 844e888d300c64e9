// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppearanceSettings.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>
#include <utility>

namespace ardeno {

namespace {

Scheme schemeFor(AppearanceWishes::Brightness wanted)
{
    using Brightness = AppearanceWishes::Brightness;
    const bool isPaletteDark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
    const bool isDark = wanted == Brightness::Any ? isPaletteDark : wanted == Brightness::Dark;
    return isDark ? Scheme::Dark : Scheme::Light;
}

// Under X11 a desktop may tell larger texts as more dots an inch, by which Qt has enlarged everything already.
bool isInScreenScale(double factor)
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    if (!screen || QGuiApplication::platformName() != "xcb")
        return false;
    const double rest = screen->devicePixelRatio() / factor;
    constexpr double rounding = 0.02;
    return std::abs(rest - std::round(rest)) < rounding;
}

double textScaleFor(double factor)
{
    const bool isSane = factor >= 0.5 && factor <= 3;
    return !isSane || factor == 1 || isInScreenScale(factor) ? 1 : factor;
}

QRgb colorOf(const AppearanceWishes::Shares &shares)
{
    const auto [red, green, blue] = shares;
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue)).rgb();
}

void apply(const AppearanceWishes &wishes)
{
    const Appearance wanted = AppearanceSettings::appearance(wishes);
    if (!(AppTheme::instance().appearance() == wanted))
        AppTheme::instance().setAppearance(wanted);
}

} // namespace

AppearanceSettings::AppearanceSettings(std::unique_ptr<DesktopAppearance> desktop) : m_desktop(std::move(desktop))
{
    m_desktop->setChangeHandler(&apply);
    apply(m_desktop->wishes());
}

Appearance AppearanceSettings::appearance(const AppearanceWishes &wishes)
{
    Appearance appearance{.scheme = schemeFor(wishes.brightness),
                          .contrast = wishes.hasHighContrast ? Contrast::High : Contrast::Normal,
                          .motion = wishes.hasReducedMotion ? Motion::Reduced : Motion::Normal,
                          .iconTheme = wishes.iconTheme,
                          .textScale = textScaleFor(wishes.textScale)};
    if (wishes.accent)
        appearance.accent = colorOf(*wishes.accent);
    return appearance;
}

} // namespace ardeno
