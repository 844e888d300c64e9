// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/AccentColors.h"
#include "ui/theme/AppTheme.h"
#include "ui/theme/AppearanceSettings.h"
#include "ui/theme/Drawing.h"
#include "ui/theme/FontFamilies.h"
#include "ui/theme/Symbols.h"

#include "tests/Printing.h"

#include <QDBusVariant>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QTextLayout>

#include <algorithm>

using namespace ardeno;

namespace {

QColor over(const QColor &top, const QColor &background)
{
    const auto mixed = [&](float a, float b) { return a * top.alphaF() + b * (1 - top.alphaF()); };
    return QColor::fromRgbF(mixed(top.redF(), background.redF()), mixed(top.greenF(), background.greenF()),
                            mixed(top.blueF(), background.blueF()));
}

struct Pair {
    Role text;
    Role background;
    std::optional<Role> soft = {};
};

// Every text on every background that the views put it on.
const Pair pairs[] = {
    {Role::Text, Role::Paper},
    {Role::Text, Role::Sidebar},
    {Role::Text, Role::Card},
    {Role::Dim, Role::Paper},
    {Role::Dim, Role::Sidebar},
    {Role::Dim, Role::Card},
    {Role::AccentText, Role::Paper},
    {Role::AccentText, Role::Card},
    {Role::AccentText, Role::Sidebar, Role::AccentSoft},
    {Role::AccentText, Role::Paper, Role::AccentSoft},
    {Role::DimOnSoft, Role::Sidebar, Role::AccentSoft},
    {Role::DimOnSoft, Role::Paper, Role::AccentSoft},
    {Role::DimOnSoft, Role::Sidebar, Role::Hover},
    {Role::Text, Role::Paper, Role::Hover},
    {Role::AmberText, Role::Paper, Role::AmberSoft},
    {Role::AmberText, Role::Sidebar},
    {Role::AmberText, Role::Card},
    {Role::SageText, Role::Paper, Role::SageSoft},
    {Role::RecordingText, Role::Paper},
    {Role::Placeholder, Role::Field},
    {Role::OnAccent, Role::Accent},
    {Role::OnAccent, Role::Recording},
};

} // namespace

TEST_CASE("every text reaches a contrast of 4.5 to 1, and 7 to 1 where high contrast is asked for")
{
    AppTheme &theme = AppTheme::instance();
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        for (const Contrast wanted : {Contrast::Normal, Contrast::High}) {
            theme.setAppearance({scheme, wanted, Motion::Normal});
            for (const Pair &pair : pairs) {
                const QColor background = pair.soft ? over(theme.color(*pair.soft), theme.color(pair.background))
                                                    : theme.color(pair.background);
                CAPTURE(static_cast<int>(pair.text));
                CAPTURE(static_cast<int>(pair.background));
                CAPTURE(static_cast<int>(scheme));
                const bool isOnFill = pair.text == Role::OnAccent; // The fills keep their exact values.
                CHECK(contrastBetween(theme.color(pair.text), background) >=
                      (wanted == Contrast::High && !isOnFill ? 7.0 : 4.5));
            }
        }
    }
    theme.setAppearance({});
}

TEST_CASE("what is pressed or typed into stands out from its background by 3 to 1")
{
    AppTheme &theme = AppTheme::instance();
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        theme.setAppearance({scheme, Contrast::Normal, Motion::Normal});
        for (const Role background : {Role::Paper, Role::Sidebar, Role::Card, Role::Field}) {
            for (const Role line : {Role::Outline, Role::AccentText})
                CHECK(contrastBetween(theme.color(line), theme.color(background)) >= 3);
        }
    }
    theme.setAppearance({});
}

TEST_CASE("whatever accent the desktop has, what is written in it and on it can be read, and the mark keeps its own")
{
    AppTheme &theme = AppTheme::instance();
    for (const QRgb accent : {qRgb(255, 255, 255), qRgb(0, 0, 0), qRgb(200, 136, 0), qRgb(46, 194, 126),
                              qRgb(145, 65, 172), qRgb(53, 132, 228), qRgb(255, 255, 0)}) {
        for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
            for (const Contrast wanted : {Contrast::Normal, Contrast::High}) {
                theme.setAppearance({.scheme = scheme, .contrast = wanted, .accent = accent});
                CAPTURE(accent);
                CHECK(contrastBetween(theme.color(Role::OnAccent), theme.color(Role::Accent)) >= 4.5);
                for (const Role background : {Role::Paper, Role::Sidebar}) {
                    const QColor soft = over(theme.color(Role::AccentSoft), theme.color(background));
                    CHECK(contrastBetween(theme.color(Role::AccentText), soft) >=
                          (wanted == Contrast::High ? 7.0 : 4.5));
                }
                CHECK(theme.color(Role::Brand) == QColor(82, 99, 158));
            }
        }
    }
    theme.setAppearance({});
}

TEST_CASE("a text that does not fit ends in its own direction, in a window of either direction")
{
    const QFontMetricsF metrics(AppTheme::instance().font(TextStyle::Body));
    const auto dotsAreAt = [&](const QString &text, Qt::LayoutDirection window) {
        QGuiApplication::setLayoutDirection(window);
        const QString shown = Drawing::fitted(text, metrics, metrics.horizontalAdvance(text) / 2);
        const qsizetype dots = shown.indexOf(u'…');
        REQUIRE(dots >= 0);
        QTextLayout layout(shown, AppTheme::instance().font(TextStyle::Body));
        QTextOption option;
        option.setTextDirection(window);
        layout.setTextOption(option);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const qreal place = line.cursorToX(static_cast<int>(dots));
        const qreal middle = line.naturalTextRect().center().x();
        return place < middle ? Qt::LeftEdge : Qt::RightEdge;
    };
    for (const Qt::LayoutDirection window : {Qt::LeftToRight, Qt::RightToLeft}) {
        CHECK(dotsAreAt(u"פרויקט הגמר של המחלקה"_qs, window) == Qt::LeftEdge);
        CHECK(dotsAreAt(u"The thesis of the department"_qs, window) == Qt::RightEdge);
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_CASE("every kind of writing has a font that was chosen for it, and the interface's own comes first")
{
    QStringList families = FontFamilies::chosen("DejaVu Serif");
    CHECK(families.first() == (QFontDatabase::hasFamily("Inter") ? "Inter" : "DejaVu Serif"));
    CHECK(families.removeDuplicates() == 0);
    const QStringList shown = AppTheme::instance().font(TextStyle::Body).families();
    for (const char32_t letter : {U'ש', U'ع', U'→'}) {
        const auto has = [&](const QString &family) { return QFontMetricsF(QFont(family)).inFontUcs4(letter); };
        CHECK(std::any_of(shown.begin(), shown.end(), has));
    }
}

TEST_CASE("the filling colours are the same in light and dark")
{
    AppTheme &theme = AppTheme::instance();
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        theme.setAppearance({scheme, Contrast::Normal, Motion::Normal});
        CHECK(theme.color(Role::Accent) == QColor(82, 99, 158));
        CHECK(theme.color(Role::Sage) == QColor(87, 133, 105));
        CHECK(theme.color(Role::Amber) == QColor(171, 120, 51));
        CHECK(theme.color(Role::Recording) == QColor(179, 71, 71));
    }
    theme.setAppearance({});
}

TEST_CASE("what the settings portal says is understood, and what it leaves out stays")
{
    const auto read = [](const Appearance &before, const QString &group, const QString &key, const QVariant &value) {
        // Values come wrapped as variants, from some portals twice.
        return AppearanceSettings::read(before, group, {{key, QVariant::fromValue(QDBusVariant(value))}});
    };
    const QString appearance = "org.freedesktop.appearance";
    const Appearance dark{Scheme::Dark, Contrast::High, Motion::Reduced};
    CHECK(read({}, appearance, "color-scheme", 1U).scheme == Scheme::Dark);
    CHECK(read(dark, appearance, "color-scheme", 2U) == Appearance{Scheme::Light, Contrast::High, Motion::Reduced});
    CHECK(read({}, appearance, "contrast", 1U).contrast == Contrast::High);
    CHECK(read(dark, appearance, "contrast", 0U).contrast == Contrast::Normal);
    CHECK(read({}, "org.gnome.desktop.interface", "enable-animations", false).motion == Motion::Reduced);
    CHECK(read(dark, appearance, "accent-color", 1U) == dark);
    CHECK(read(dark, "org.example", "color-scheme", 2U) == dark);
}

TEST_CASE("every symbol can be drawn, tinted, at every scale")
{
    CHECK(Symbols::exists("folder"));
    const QDir symbols(":/symbols");
    REQUIRE(symbols.entryList().size() > 25);
    for (const QString &file : symbols.entryList()) {
        const QString name = QString(file).remove(".svg");
        CAPTURE(name);
        for (const double scale : {1.0, 1.5, 2.0}) {
            QImage image(qRound(16 * scale), qRound(16 * scale), QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            Symbols::draw(painter, name, {0, 0, 16, 16}, Qt::red);
            painter.end();
            bool isRed = false;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QColor pixel = image.pixelColor(x, y);
                    isRed = isRed || (pixel.red() > 200 && pixel.green() < 60 && pixel.alpha() > 150);
                }
            }
            CHECK(isRed);
        }
    }
}
