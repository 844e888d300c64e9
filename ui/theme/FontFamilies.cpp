// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/theme/FontFamilies.h"

#include <QFontDatabase>
#include <QLocale>

#include <algorithm>

namespace ardeno {

namespace {

constexpr const char *interfaceFamily = "Inter";

// Chinese, Japanese and Korean write some characters differently: the user's own way comes first.
QStringList eastAsianFamilies()
{
    QStringList regions{"SC", "JP", "TC", "KR"};
    for (const QString &language : QLocale().uiLanguages()) {
        const QString own = language.startsWith("ja")                                     ? "JP"
                            : language.startsWith("ko")                                   ? "KR"
                            : language.startsWith("zh-TW") || language.startsWith("zh-H") ? "TC"
                                                                                          : QString();
        if (regions.removeOne(own)) {
            regions.prepend(own);
            break;
        }
    }
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
