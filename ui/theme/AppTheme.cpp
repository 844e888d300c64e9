// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AppTheme.h"

#include "ui/theme/AccentColors.h"
#include "ui/theme/FontFamilies.h"

#include <QApplication>
#include <QFontInfo>
#include <QIcon>
#include <QList>
#include <QPointer>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno {

namespace {

struct RoleColors {
    Role role;
    QRgb light;
    QRgb dark;
    // With high contrast.
    QRgb strongLight;
    QRgb strongDark;
};

constexpr QRgb accent = qRgb(82, 99, 158);    // 0.32, 0.39, 0.62
constexpr QRgb sage = qRgb(87, 133, 105);     // 0.34, 0.52, 0.41
constexpr QRgb amber = qRgb(171, 120, 51);    // 0.67, 0.47, 0.2
constexpr QRgb recording = qRgb(179, 71, 71); // 0.7, 0.28, 0.28

constexpr RoleColors roleColors[] = {
    {Role::Accent, accent, accent, accent, accent},
    {Role::AccentText, 0xff52639e, 0xffa9b5ea, 0xff2c3a70, 0xffd3daff},
    {Role::AccentSoft, 0x1a52639e, 0x337f90d6, 0x1a52639e, 0x407f90d6},
    {Role::OnAccent, 0xffffffff, 0xffffffff, 0xffffffff, 0xffffffff},
    {Role::Sage, sage, sage, sage, sage},
    {Role::SageText, 0xff4b7359, 0xff8fc3a3, 0xff28492f, 0xffbfe8cd},
    {Role::SageSoft, 0x1f578569, 0x2683b696, 0x1f578569, 0x2683b696},
    {Role::Amber, amber, amber, amber, amber},
    {Role::AmberText, 0xff8f6226, 0xffdfae6b, 0xff5f3d0c, 0xfff6d5a4},
    {Role::AmberSoft, 0x1fab7833, 0x26d9a45c, 0x1fab7833, 0x26d9a45c},
    {Role::Recording, recording, recording, recording, recording},
    {Role::RecordingText, 0xffa63f3f, 0xffe88585, 0xff7a2020, 0xffffb8b8},
    {Role::Paper, 0xffffffff, 0xff1c1d21, 0xffffffff, 0xff000000},
    {Role::Sidebar, 0xfff3f3f5, 0xff25262b, 0xfff3f3f5, 0xff0e0f11},
    {Role::Card, 0xfffafafb, 0xff222327, 0xffffffff, 0xff000000},
    {Role::Field, 0xffffffff, 0xff17181b, 0xffffffff, 0xff000000},
    {Role::Line, 0xffe3e3e8, 0xff35373e, 0xff5f616c, 0xffa2a4ae},
    {Role::Outline, 0xff888a95, 0xff777984, 0xff5f616c, 0xffa2a4ae},
    {Role::Hover, 0x121f2026, 0x16ffffff, 0x181f2026, 0x30ffffff},
    {Role::Text, 0xff1f2026, 0xffecedf1, 0xff000000, 0xffffffff},
    {Role::Dim, 0xff6b6d78, 0xffa2a4ae, 0xff35363d, 0xffd8d9df},
    {Role::DimOnSoft, 0xff5d5f6a, 0xffadafb9, 0xff2b2c32, 0xffe2e3e8},
    {Role::Faint, 0xff9a9ca6, 0xff777984, 0xff5f616c, 0xffa2a4ae},
    {Role::Placeholder, 0xff70727d, 0xff8d8f9a, 0xff4a4b53, 0xffc0c2ca},
    {Role::Scrim, 0x591a1c25, 0x80000000, 0x801a1c25, 0xb0000000},
    {Role::PictureGround, 0xffefeff3, 0xff2b2c32, 0xffefeff3, 0xff1a1b1f},
    {Role::Brand, accent, accent, accent, accent},
};

QRgb valueFor(const RoleColors &colors, const Appearance &appearance)
{
    const bool isDark = appearance.scheme == Scheme::Dark;
    if (appearance.contrast == Contrast::High)
        return isDark ? colors.strongDark : colors.strongLight;
    return isDark ? colors.dark : colors.light;
}

QList<QPointer<QWidget>> &followers()
{
    static QList<QPointer<QWidget>> all;
    return all;
}

struct StyleSize {
    double pixels;
    QFont::Weight weight;
};

StyleSize sizeOf(TextStyle style)
{
    switch (style) {
    case TextStyle::Title:
        return {30, QFont::DemiBold};
    case TextStyle::Heading:
        return {22, QFont::DemiBold};
    case TextStyle::SheetTitle:
        return {24, QFont::DemiBold};
    case TextStyle::BarTitle:
        return {15, QFont::DemiBold};
    case TextStyle::Strong:
        return {13, QFont::DemiBold};
    case TextStyle::Medium:
        return {13, QFont::Medium};
    case TextStyle::Body:
        return {13, QFont::Normal};
    case TextStyle::Small:
        return {11.5, QFont::Normal};
    case TextStyle::SmallStrong:
        return {11.5, QFont::DemiBold};
    case TextStyle::Eyebrow:
        return {10.5, QFont::DemiBold};
    case TextStyle::Tiny:
        return {11, QFont::Normal};
    case TextStyle::Count:
        break;
    }
    return {13, QFont::Normal};
}

} // namespace

AppTheme &AppTheme::instance()
{
    static AppTheme theme;
    return theme;
}

AppTheme::AppTheme()
{
    const QFont desktopFont = QGuiApplication::font();
    m_families = FontFamilies::chosen(desktopFont.family());
    // 10 points on a screen of 96 dots an inch are what most desktops call normal.
    constexpr double normalPixels = 40.0 / 3;
    m_desktopScale = std::clamp(QFontInfo(desktopFont).pixelSize() / std::round(normalPixels), 1.0, 2.0);
    m_scale = m_desktopScale;
    makeFonts();
    compute();
    // Of what brings no font of its own: stock menus and dialogs.
    QApplication::setFont(font(TextStyle::Body));
    QToolTip::setFont(font(TextStyle::Small));
    QToolTip::setPalette(m_palette);
}

void AppTheme::compute()
{
    for (const RoleColors &colors : roleColors)
        m_colors[static_cast<int>(colors.role)] = QColor::fromRgba(valueFor(colors, m_appearance));
    takeDesktopBackgrounds();
    takeAccent();

    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button})
        m_palette.setColor(role, color(Role::Paper));
    m_palette.setColor(QPalette::Base, color(Role::Field));
    m_palette.setColor(QPalette::AlternateBase, color(Role::Card));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        m_palette.setColor(role, color(Role::Text));
    m_palette.setColor(QPalette::Highlight, color(Role::Accent));
    m_palette.setColor(QPalette::HighlightedText, color(Role::OnAccent));
    m_palette.setColor(QPalette::ToolTipBase, color(Role::Card));
    m_palette.setColor(QPalette::ToolTipText, color(Role::Text));
    for (const Role role :
         {Role::Dim, Role::AccentText, Role::SageText, Role::AmberText, Role::RecordingText, Role::Placeholder})
        m_palette.setColor(paletteRole(role), color(role));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        m_palette.setColor(QPalette::Disabled, role, color(Role::Faint));
}

void AppTheme::takeDesktopBackgrounds()
{
    // A desktop that gives no palette of its own leaves the style's.
    const QPalette desktop = QGuiApplication::palette();
    const QStyle *const style = QApplication::style();
    const QPalette plain = style ? style->standardPalette() : desktop;
    const QColor paper = desktop.color(QPalette::Base);
    const QColor sidebar = desktop.color(QPalette::Window);
    if (m_appearance.contrast == Contrast::High || paper == plain.color(QPalette::Base) ||
        sidebar == plain.color(QPalette::Window))
        return;
    const bool isDark = paper.lightness() < 128;
    if (isDark != (m_appearance.scheme == Scheme::Dark))
        return;
    m_colors[static_cast<int>(Role::Paper)] = paper;
    m_colors[static_cast<int>(Role::Sidebar)] = sidebar;
}

void AppTheme::takeAccent()
{
    if (!m_appearance.accent)
        return;
    const AccentColors colors = AccentColors::fitted(
        QColor::fromRgb(*m_appearance.accent), {.paper = color(Role::Paper),
                                                .sidebar = color(Role::Sidebar),
                                                .scheme = m_appearance.scheme,
                                                .leastContrast = m_appearance.contrast == Contrast::High ? 7 : 4.5});
    m_colors[static_cast<int>(Role::Accent)] = colors.fill;
    m_colors[static_cast<int>(Role::AccentSoft)] = colors.soft;
    m_colors[static_cast<int>(Role::AccentText)] = colors.text;
}

QPalette::ColorRole AppTheme::paletteRole(Role role)
{
    switch (role) {
    case Role::Dim:
        return QPalette::Dark;
    case Role::AccentText:
        return QPalette::Link;
    case Role::SageText:
        return QPalette::BrightText;
    case Role::AmberText:
        return QPalette::LinkVisited;
    case Role::RecordingText:
        return QPalette::Shadow;
    case Role::Placeholder:
        return QPalette::PlaceholderText;
    default:
        return QPalette::WindowText;
    }
}

void AppTheme::setAppearance(const Appearance &appearance)
{
    m_appearance = appearance;
    while (QWidget *const popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            break; // What it was drawn on has other colours now.
    }
    if (!appearance.iconTheme.isEmpty())
        QIcon::setThemeName(appearance.iconTheme);
    compute();
    QToolTip::setPalette(m_palette);
    scaleFonts(appearance.textScale);
    followers().removeIf([](const QPointer<QWidget> &window) { return window.isNull(); });
    for (const QPointer<QWidget> &window : followers())
        window->setPalette(m_palette);
}

void AppTheme::scaleFonts(double textScale)
{
    constexpr double most = 2.5;
    const double before = std::exchange(m_scale, std::clamp(m_desktopScale * textScale, 0.8, most));
    if (m_scale == before)
        return;
    makeFonts();
    QApplication::setFont(font(TextStyle::Body));
    QToolTip::setFont(font(TextStyle::Small));
    // Every widget was given a font of its own, in proportion to the scale.
    for (QWidget *const widget : QApplication::allWidgets()) {
        if (!widget->testAttribute(Qt::WA_SetFont) || widget->font().pointSizeF() <= 0)
            continue;
        QFont scaled = widget->font();
        scaled.setPointSizeF(scaled.pointSizeF() * m_scale / before);
        widget->setFont(scaled);
        widget->updateGeometry();
    }
}

void AppTheme::follow(QWidget *window)
{
    followers().append(window);
    window->setPalette(m_palette);
    window->setFont(font(TextStyle::Body));
}

void AppTheme::makeFonts()
{
    for (int at = 0; at < static_cast<int>(TextStyle::Count); ++at) {
        const auto style = static_cast<TextStyle>(at);
        const StyleSize size = sizeOf(style);
        QFont made = font(size.pixels, size.weight);
        if (style == TextStyle::Eyebrow)
            made.setLetterSpacing(QFont::PercentageSpacing, 109);
        else if (style == TextStyle::Title || style == TextStyle::Heading || style == TextStyle::SheetTitle)
            made.setLetterSpacing(QFont::PercentageSpacing, 98);
        m_fonts[at] = made;
    }
}

QFont AppTheme::font(double pixels, QFont::Weight weight) const
{
    QFont result;
    result.setFamilies(m_families);
    // Letters stand where the type has them, not on whole pixels; lines of text stay sharp.
    result.setHintingPreference(QFont::PreferVerticalHinting);
    // Points keep the fractions that pixel sizes would lose; Qt counts 72 of them at 96 dots an inch.
    result.setPointSizeF(pixels * m_scale * 0.75);
    result.setWeight(weight);
    return result;
}

} // namespace ardeno
