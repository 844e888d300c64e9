// SPDX-License-Identifier: GPL-3.0-or-later
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "ui/controls/FadeIn.h"
#include "ui/controls/Sheet.h"
#include "ui/theme/AppStyle.h"
#include "words/Words.h"

#include <QApplication>
#include <QLocale>

#include <unicode/locid.h>

int main(int argc, char **argv)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale::getUS(), status);
    QApplication::setStyle(new ardeno::AppStyle);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ardeno::installSheetAccessibility();
    ardeno::FadeIn::setDuration({}); // Pictures show what has come.
    const ardeno::Words words(ardeno::Words::Language::OfCode);
    return doctest::Context(argc, argv).run();
}
