// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Text.h"

#include "support/Date.h"
#include "support/VisibleText.h"
#include "tests/Printing.h"

#include <QJsonArray>
#include <QJsonDocument>

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

TEST_CASE("what nobody sees in a name is left out, and what scripts and emoji need is kept")
{
    for (const char32_t hidden : {0x61c,  0x200e, 0x200f, 0x202a, 0x202b, 0x202c, 0x202d, 0x202e, 0x2066, 0x2067,
                                  0x2068, 0x2069, 0xad,   0x180e, 0x200b, 0x2060, 0x206f, 0xfeff, 0xfffb, 0xe0041}) {
        CAPTURE(uint(hidden));
        const QString character = QStringView(QChar::fromUcs4(hidden)).toString();
        CHECK(VisibleText::oneLine("a" + character + "b") == "ab");
        const QByteArray json = VisibleText::escapedJson(("[\"" + character + "é\"]").toUtf8());
        CHECK_FALSE(json.contains(character.toUtf8()));
        CHECK(QJsonDocument::fromJson(json).array().at(0) == character + u"é"_qs);
    }
    CHECK(VisibleText::oneLine(u"a\tb\u0085c\u2028d\u007f"_qs) == "a b c d ");
    CHECK(VisibleText::lines("a\r\nb") == "a \nb");
    for (const QString &kept :
         {u"👩‍💻"_qs, u"می\u200cخواهم"_qs, u"\u0600١"_qs, u"❤️"_qs, u"שלום"_qs, QString(QChar(0xd800))})
        CHECK(VisibleText::oneLine(kept) == kept);
}

TEST_CASE("dates count from 2001 and damaged ones stay harmless")
{
    CHECK(Date{0}.toIsoText() == "2001-01-01T00:00:00Z");
    CHECK(Date{-0.5}.toDateTime().toMSecsSinceEpoch() == 978307199500);
    CHECK(Date{1e300}.toIsoText().isEmpty());
    CHECK(Date{qQNaN()}.toIsoText().isEmpty());
    CHECK(Date::fromDateTime(QDateTime(QDate(2001, 1, 2), QTime(0, 0), Qt::UTC)) == Date{86400});
}
