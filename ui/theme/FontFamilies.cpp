// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/FontFamilies.h"

#include <QFontDatabase>
#include <QLocale>

#include <algorithm>

namespace ardeno {

namespace {

constexpr const char *interfaceFamily = "Inter";

// The region whose way of writing a language has; empty for every other language.
QString regionOf(const QString &language)
{
    if (language.startsWith("ja"))
        return "JP";
    if (language.startsWith("ko"))
        return "KR";
    if (!language.startsWith("zh"))
        return {};
    static const QStringList traditional{"zh-Hant", "zh-TW", "zh-HK", "zh-MO"};
    const bool isTraditional = std::any_of(traditional.begin(), traditional.end(),
                                           [&](const QString &start) { return language.startsWith(start); });
    return isTraditional ? "TC" : "SC";
}

// Chinese, Japanese and Korean write some characters differently: the user's own way comes first.
QStringList eastAsianFamilies()
{
    QStringList regions;
    for (const QString &language : QLocale().uiLanguages())
        regions << regionOf(language);
    regions << QStringList{"SC", "JP", "TC", "KR"};
    regions.removeAll(QString());
    regions.removeDuplicates();
    QStringList families;
    for (const QString &region : std::as_const(regions))
        families << "Noto Sans CJK " + region << "Source Han Sans " + region;
    return families << "WenQuanYi Micro Hei"
                    << "Droid Sans Fallback";
}

// For each kind of writing what suits best, the first one that is there.
QList<QStringList> candidates()
{
    return {
        {"Noto Color Emoji", "Twemoji", "Noto Emoji"},
        {"Noto Sans Hebrew", "DejaVu Sans"},
        {"Noto Sans Arabic", "Noto Sans Arabic UI", "DejaVu Sans"},
        eastAsianFamilies(),
        {"Noto Sans Symbols 2", "DejaVu Sans"},
    };
}

} // namespace

QStringList FontFamilies::chosen(const QString &desktopFamily)
{
    QStringList families{QFontDatabase::hasFamily(interfaceFamily) ? QString(interfaceFamily) : desktopFamily};
    for (const QStringList &writing : candidates()) {
        const auto found = std::find_if(writing.begin(), writing.end(),
                                        [](const QString &name) { return QFontDatabase::hasFamily(name); });
        if (found != writing.end() && !families.contains(*found))
            families.append(*found);
    }
    return families;
}

} // namespace ardeno
