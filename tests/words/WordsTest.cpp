// SPDX-License-Identifier: GPL-3.0-or-later
#include "words/Words.h"
#include "support/StoredText.h"
#include "tests/Printing.h"
#include "tests/words/SourceTexts.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

using namespace ardeno;

namespace {

// What is called so on another desktop only.
bool isForeign(const QString &text)
{
    static const QRegularExpression words(
        R"(\bMac\b|macOS|\bApple|\bFinder\b|\bSafari\b|\bSpaces\b|System Settings|Screen Recording settings|Preview document|)"
        R"(\bmenu bar\b|\bDock\b|Applications folder|(?:Accessibility|Automation) access|[⌃⌥⌘⇧])",
        QRegularExpression::UseUnicodePropertiesOption);
    return words.match(text).hasMatch();
}

QString shown(const QString &text, int count = -1)
{
    return QCoreApplication::translate("ardeno::Words", text.toUtf8().constData(), "", count);
}

bool isCounted(const QString &text)
{
    return text.contains("%n");
}

QStringList placeholders(const QString &text)
{
    static const QRegularExpression pattern(R"(%(?:n|L?\d))");
    QStringList found;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
        found << match.captured();
    found.sort();
    return found;
}

QSet<QString> textsThat(bool SourceText::*property)
{
    QSet<QString> texts;
    for (const SourceText &text : sourceTexts()) {
        if (text.*property)
            texts.insert(text.text);
    }
    return texts;
}

QSet<QString> translatableTexts()
{
    return textsThat(&SourceText::isTranslatable);
}

} // namespace

TEST_CASE("no text that is shown names what this desktop does not have, in any language")
{
    const QSet<QString> texts = translatableTexts();
    REQUIRE(texts.size() > 200);
    for (const QStringList &languages : {QStringList(), QStringList{"de"}}) {
        const Words words(languages);
        QStringList foreign;
        for (const QString &text : texts) {
            for (const int count : isCounted(text) ? QList{1, 2} : QList{-1}) {
                if (isForeign(shown(text, count)))
                    foreign << shown(text, count);
            }
        }
        CHECK(foreign == QStringList());
    }
}

TEST_CASE("catalogues keep the places for values, in every form of what is counted")
{
    for (const char *name : {"ardeno_en", "ardeno_linux", "ardeno_de", "ardeno_linux_de"}) {
        const QHash<QString, QStringList> translations = catalogue(name);
        QStringList differing;
        for (auto entry = translations.begin(); entry != translations.end(); ++entry) {
            const bool hasForms = entry->size() == (isCounted(entry.key()) ? 2 : 1);
            const bool isFaithful = std::all_of(entry->begin(), entry->end(), [&](const QString &form) {
                return placeholders(form) == placeholders(entry.key()) &&
                       form.endsWith(' ') == entry.key().endsWith(' ');
            });
            if (!hasForms || !isFaithful)
                differing << entry.key();
        }
        CAPTURE(name);
        CHECK(translations.size() > 10);
        CHECK(differing == QStringList());
    }
}

TEST_CASE("every text has a German translation, and what is counted an English singular")
{
    const auto german = catalogue("ardeno_de");
    const auto onThisDesktop = catalogue("ardeno_linux_de");
    const auto counted = catalogue("ardeno_en");
    QStringList missing;
    for (const QString &text : translatableTexts()) {
        if (!german.contains(text) && !onThisDesktop.contains(text) && !text.trimmed().isEmpty())
            missing << text;
    }
    for (const QString &text : translatableTexts() + textsThat(&SourceText::isStored)) {
        if (isCounted(text) && !counted.contains(text))
            missing << text;
    }
    missing.sort();
    CHECK(missing == QStringList());
}

TEST_CASE("only exactly one is singular, in every language, and in the words of this desktop")
{
    struct Case {
        const char *text;
        QStringList english; // Of none, one and two.
        QStringList german;
    };

    const Case cases[] = {
        {"%n pages", {"0 pages", "1 page", "2 pages"}, {"0 Seiten", "1 Seite", "2 Seiten"}},
        {"%n apps", {"0 apps", "1 apps", "2 apps"}, {"0 Apps", "1 App", "2 Apps"}},
        {"%n Finder locations restored",
         {"0 folders restored", "1 folder restored", "2 folders restored"},
         {"0 Ordner wiederhergestellt", "1 Ordner wiederhergestellt", "2 Ordner wiederhergestellt"}},
    };
    for (const Case &tried : cases) {
        for (int count = 0; count < 3; ++count) {
            const Words english(Words::Language::English);
            CHECK(shown(tried.text, count) == tried.english.at(count));
            const Words german(QStringList{"de"});
            CHECK(shown(tried.text, count) == tried.german.at(count));
        }
    }
}

TEST_CASE("the language's own words for this desktop come last, and an unknown language changes nothing")
{
    {
        const Words words({"de_DE", "de"});
        CHECK(shown("Cancel") == "Abbrechen");
        CHECK(shown(u"⌃⌥⌘S (default)"_qs) == "Strg+Alt+Super+S (Standard)");
    }
    for (const QStringList &languages : {QStringList{"tlh"}, QStringList{"en_GB", "de"}, QStringList{"C", "de"}}) {
        const Words words(languages);
        CHECK(shown("Cancel") == "Cancel");
        CHECK(shown(u"⌃⌥⌘S (default)"_qs) == "Ctrl+Alt+Super+S (default)");
    }
    CHECK(shown(u"⌃⌥⌘S (default)"_qs) == u"⌃⌥⌘S (default)"_qs);
}

TEST_CASE("what is stored is English in the words of this desktop, whatever the user's language is")
{
    // Some sentences are shown and stored.
    const QSet<QString> texts = translatableTexts() + textsThat(&SourceText::isStored);
    const auto storedTexts = [&](const Words &) {
        QStringList stored;
        for (const QString &text : texts)
            stored << storedText(text.toUtf8().constData(), isCounted(text) ? 1 : -1);
        return stored;
    };
    const QStringList english = storedTexts(Words(Words::Language::English));
    CHECK(storedTexts(Words(QStringList{"de"})) == english);
    CHECK(english.filter("computer").size() > 1);
    CHECK(std::none_of(english.begin(), english.end(), isForeign));
}

TEST_CASE("what names another desktop can be replaced")
{
    QStringList others;
    for (const SourceText &text : sourceTexts()) {
        const bool isSentence = text.text.contains(' '); // Not a name of a browser or the like.
        if (isSentence && !text.isTranslatable && !text.isStored && isForeign(text.text))
            others << text.file + ": " + text.text;
    }
    CHECK(others == QStringList());
}
