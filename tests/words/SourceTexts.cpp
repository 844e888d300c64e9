// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/words/SourceTexts.h"

#include "tests/support/Files.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace ardeno {

namespace {

const QString sources = ARDENO_SOURCES;

// Of neighbouring literals, which are one text.
QString textOf(const QString &literals)
{
    static const QRegularExpression literal(R"re("((?:\\.|[^"\\])*)")re");
    QString content;
    for (const QRegularExpressionMatch &match : literal.globalMatch(literals))
        content += match.captured(1);
    return QJsonDocument::fromJson(("[\"" + content + "\"]").toUtf8()).array().at(0).toString();
}

// Literals with what they are given to; what else holds quotes is passed over.
QList<SourceText> textsIn(const QString &code)
{
    static const QRegularExpression pattern(R"re(//[^\n]*|/\*.*?\*/|#include[^\n]*|R"\(.*?\)"|'(?:\\.|[^'\\])'|)re"
                                            R"re((?<call>\b(?:(?:tr|restoreText|summaryText|storedText)\(\s*|)re"
                                            R"re((?:translate|QT_TRANSLATE_NOOP)\(\s*"[^"]*",\s*))?)re"
                                            R"re((?<text>(?:u?"(?:\\.|[^"\\])*"(?:_qs)?\s*)+))re",
                                            QRegularExpression::DotMatchesEverythingOption);
    QList<SourceText> found;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(code)) {
        const QString call = match.captured("call");
        const bool isStored = call.startsWith("storedText");
        if (match.hasCaptured("text"))
            found.append({{}, textOf(match.captured("text")), !call.isEmpty() && !isStored, isStored});
    }
    return found;
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
            for (SourceText &text : textsIn(fileBytes(path))) {
                text.file = path.mid(sources.size() + 1);
                texts.append(text);
            }
        }
    }
    return texts;
}

QHash<QString, QStringList> catalogue(const QString &name)
{
    QXmlStreamReader xml(fileBytes(sources + "/resources/translations/" + name + ".ts"));
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
