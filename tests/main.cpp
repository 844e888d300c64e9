// SPDX-License-Identifier: GPL-3.0-or-later
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "words/Words.h"

#include <QCoreApplication>
#include <QLocale>

#include <unicode/locid.h>

int main(int argc, char **argv)
{
    // Order and dates depend on the language; the tests fix it.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale::getUS(), status);

    QCoreApplication application(argc, argv);
    const ardeno::Words words(ardeno::Words::Language::OfCode);
    return doctest::Context(argc, argv).run();
}
