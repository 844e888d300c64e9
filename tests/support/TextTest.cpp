// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include "support/Date.h"
#include "tests/Printing.h"

#include <algorithm>

using namespace ardeno;

TEST_CASE("names are the same whatever their case and the way their accents are composed")
{
    CHECK(Text::equalNames(u"Café"_qs, u"CAFE\u0301"_qs));
    CHECK(Text::equalNames(u"Straße"_qs, u"STRASSE"_qs));
    CHECK_FALSE(Text::equalNames(u"Cafe"_qs, u"Café"_qs));
    CHECK(Text::containsName(u"Die große Straße"_qs, u"STRASSE"_qs));
    CHECK(Text::containsName(u"anything"_qs, {}));
}

TEST_CASE("names are ordered as people order them, not by code")
{
    QStringList names = {"zebra", "Éclair", "apple", "Zoo", "eclair"};
    std::sort(names.begin(), names.end(), std::ref(*std::make_unique<NameOrder>()));
    CHECK(names.first() == "apple");
    CHECK(names.at(1) == "eclair");
    CHECK(names.at(2) == u"Éclair"_qs);
    CHECK(names.mid(3) == QStringList{"zebra", "Zoo"});
}

TEST_CASE("dates count from 2001 and damaged ones stay harmless")
{
    CHECK(Date{0}.toIsoText() == "2001-01-01T00:00:00Z");
    CHECK(Date{-0.5}.toDateTime().toMSecsSinceEpoch() == 978307199500);
    CHECK(Date{1e300}.toIsoText().isEmpty());
    CHECK(Date{qQNaN()}.toIsoText().isEmpty());
    CHECK(Date::fromDateTime(QDateTime(QDate(2001, 1, 2), QTime(0, 0), Qt::UTC)) == Date{86400});
}
