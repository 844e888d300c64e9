// SPDX-License-Identifier: GPL-3.0-or-later
#include "words/Words.h"
#include "tests/Printing.h"
#include "tests/words/SourceTexts.h"

#include <QCoreApplication>
#include <QRegularExpression>

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

QString shown(const QString &text)
{
    return QCoreApplication::translate("ardeno::Words", text.toUtf8().constData());
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

QSet<QString> translatableTexts()
{
    QSet<QString> texts;
    for (const SourceText &text : sourceTexts()) {
        if (text.isTranslatable)
            texts.insert(text.text);
    }
    return texts;
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
            if (isForeign(shown(text)))
                foreign << shown(text);
        }
        CHECK(foreign == QStringList());
    }
}

TEST_CASE("the catalogue of the desktop keeps the places for values")
{
    for (const char *name : {"ardeno_linux", "ardeno_linux_de"}) {
        CAPTURE(name);
        const QHash<QString, QString> replaced = catalogue(name);
        for (auto entry = replaced.begin(); entry != replaced.end(); ++entry) {
            CAPTURE(entry.key());
            CHECK_FALSE(entry.value().isEmpty());
            CHECK(placeholders(entry.key()) == placeholders(entry.value()));
        }
    }
}

TEST_CASE("every text has a German translation with the same places for values")
{
    const QHash<QString, QString> german = catalogue("ardeno_de");
    const QHash<QString, QString> onThisDesktop = catalogue("ardeno_linux_de");
    const QSet<QString> texts = translatableTexts();
    QStringList missing;
    QStringList differing;
    for (const QString &text : texts) {
        const QString translation = german.value(text, onThisDesktop.value(text));
        if (translation.isEmpty() && !text.trimmed().isEmpty())
            missing << text;
        else if (placeholders(text) != placeholders(translation) || text.endsWith(' ') != translation.endsWith(' '))
            differing << text;
    }
    missing.sort();
    CHECK(missing == QStringList());
    CHECK(differing == QStringList());
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

TEST_CASE("what names another desktop and cannot be replaced is stored on disk")
{
    // Sentences of records, which stay as they are wherever they are read.
    const QSet<QString> stored = {
        "An illustrative checkpoint. Nothing on your Mac has been captured.",
    };
    QStringList others;
    for (const SourceText &text : sourceTexts()) {
        const bool isSentence = text.text.contains(' '); // Not a name of a browser or the like.
        if (isSentence && !text.isTranslatable && isForeign(text.text) && !stored.contains(text.text))
            others << text.file + ": " + text.text;
    }
    CHECK(others == QStringList());
}
