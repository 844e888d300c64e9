// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/words/SourceTexts.h"

#include <doctest/doctest.h>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace ardeno {

namespace {

const QString sources = ARDENO_SOURCES;

QString fileText(const QString &path)
{
    QFile file(path);
    REQUIRE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

QString unescaped(const QString &literal)
{
    static const QRegularExpression escape(R"(\\(u[0-9a-fA-F]{4}|x[0-9a-fA-F]+|.))");
    QString text;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &match : escape.globalMatch(literal)) {
        text += literal.mid(end, match.capturedStart() - end);
        const QString code = match.captured(1);
        if (code.size() > 1)
            text += QChar(code.mid(1).toUShort(nullptr, 16));
        else
            text += code == "n" ? QChar('\n') : code == "t" ? QChar('\t') : code.front();
        end = match.capturedEnd();
    }
    return text + literal.mid(end);
}

struct Token {
    enum class Kind { Text, Name, Other };

    Kind kind = Kind::Other;
    QString text = {};
};

// Comments are left out, neighbouring literals are one text.
QList<Token> tokens(const QString &code)
{
    static const QRegularExpression pattern(R"re(//[^\n]*|/\*.*?\*/|#include[^\n]*|R"\((?<raw>.*?)\)"|)re"
                                            R"re('(?:\\.|[^'\\])'|u?"(?<text>(?:\\.|[^"\\])*)"(?:_qs)?|)re"
                                            R"re((?<name>[A-Za-z_]\w*)|(?<other>\S))re",
                                            QRegularExpression::DotMatchesEverythingOption);
    QList<Token> found;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(code)) {
        if (match.hasCaptured("name"))
            found.append({Token::Kind::Name, match.captured("name")});
        else if (match.hasCaptured("other"))
            found.append({Token::Kind::Other, match.captured("other")});
        else if (!match.hasCaptured("text"))
            continue;
        else if (!found.isEmpty() && found.last().kind == Token::Kind::Text)
            found.last().text += unescaped(match.captured("text"));
        else
            found.append({Token::Kind::Text, unescaped(match.captured("text"))});
    }
    return found;
}

// Whether the text at this place is the argument of tr(), or the second one of translate() and its like.
bool isTranslated(const QList<Token> &all, qsizetype at)
{
    const auto text = [&](qsizetype back) { return at >= back ? all.at(at - back).text : QString(); };
    const bool isInContext = text(4) == "translate" || text(4) == "QT_TRANSLATE_NOOP";
    // Short names for the latter, in files that have no class of their own.
    const bool isInFunction = text(2) == "tr" || text(2) == "restoreText" || text(2) == "summaryText";
    return (text(1) == "(" && isInFunction) || (text(1) == "," && text(3) == "(" && isInContext);
}

// Of the translation that the reader stands at: one, or those of a counted text.
QStringList forms(QXmlStreamReader &xml)
{
    QStringList found;
    QString alone;
    while (xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement())
            found << xml.readElementText();
        else
            alone += xml.text();
    }
    return found.isEmpty() ? QStringList{alone} : found;
}

} // namespace

QList<SourceText> sourceTexts()
{
    QList<SourceText> texts;
    for (const char *room : {"app", "ui", "store", "services", "capture", "model", "media", "support", "network"}) {
        QDirIterator files(sources + '/' + room, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QList<Token> all = tokens(fileText(path));
            for (qsizetype i = 0; i < all.size(); ++i) {
                const bool isStored = i >= 2 && all.at(i - 2).text == "storedText";
                if (all.at(i).kind == Token::Kind::Text)
                    texts.append({path.mid(sources.size() + 1), all.at(i).text, isTranslated(all, i), isStored});
            }
        }
    }
    return texts;
}

QHash<QString, QStringList> catalogue(const QString &name)
{
    QXmlStreamReader xml(fileText(sources + "/resources/translations/" + name + ".ts"));
    QHash<QString, QStringList> translations;
    QString text;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source")) {
            text = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const bool isUnfinished = xml.attributes().hasAttribute("type");
            translations.insert(text, isUnfinished ? QStringList() : forms(xml));
        }
    }
    REQUIRE_FALSE(xml.hasError());
    return translations;
}

} // namespace ardeno
