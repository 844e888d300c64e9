// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/Label.h"
#include "ui/theme/AccentColors.h"
#include "ui/theme/AppTheme.h"
#include "ui/theme/FontFamilies.h"
#include "ui/theme/Symbols.h"

#include "tests/Printing.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>

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

TEST_CASE("a title stands at the side where lines begin in the window, and is shortened at its own end")
{
    struct Ink {
        int left = 0;
        int right = 0;
        int leftTop = 0; // Of what is drawn at the left end, and at the right one.
        int rightTop = 0;
    };

    const auto inkOf = [](LineLabel &label, int width) {
        label.resize(width, label.sizeHint().height());
        const QImage image = label.grab().toImage();
        const int ground = image.pixelColor(0, 0).lightness();
        const auto topIn = [&](int column) {
            int y = 0;
            while (y < image.height() && std::abs(image.pixelColor(column, y).lightness() - ground) < 60)
                ++y;
            return y;
        };
        QList<int> columns;
        for (int x = 0; x < image.width(); ++x) {
            if (topIn(x) < image.height())
                columns << x;
        }
        REQUIRE(columns.size() > 10);
        return Ink{columns.first(), columns.last(), topIn(columns.first()), topIn(columns.last())};
    };
    for (const Qt::LayoutDirection window : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(window);
        for (const QString &title : {u"פרויקט הגמר של המחלקה"_qs, u"The thesis of the department"_qs}) {
            CAPTURE(title);
            LineLabel label(title);
            const int whole = label.sizeHint().width();
            const Ink alone = inkOf(label, whole + 100);
            CHECK((window == Qt::LeftToRight ? alone.left : whole + 100 - alone.right) < 8);
            const Ink cut = inkOf(label, whole / 2);
            // The dots stand low, where the text goes on for who reads it.
            CHECK((cut.leftTop > cut.rightTop) == title.isRightToLeft());
        }
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
