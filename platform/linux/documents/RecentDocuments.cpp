// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/RecentDocuments.h"

#include "platform/linux/files/PathText.h"

#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <algorithm>

namespace ardeno {

namespace {

QDateTime lastOf(const QXmlStreamAttributes &attributes, std::initializer_list<const char *> names)
{
    QDateTime last;
    for (const char *name : names)
        last = std::max(last, QDateTime::fromString(attributes.value(name).toString(), Qt::ISODateWithMs));
    return last;
}

// "'evince %u'" → "evince".
QString program(QStringView command)
{
    const QStringView words = command.trimmed().mid(command.trimmed().startsWith('\'') ? 1 : 0);
    const QStringView first = words.left(words.indexOf(' '));
    return first.mid(first.lastIndexOf('/') + 1).toString().remove('\'');
}

} // namespace

QList<RecentDocument> RecentDocuments::parsed(const QByteArray &text)
{
    QList<RecentDocument> documents;
    RecentDocument current; // Without a path outside of a bookmark that names a file.
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        const QXmlStreamAttributes attributes = reader.attributes();
        if (token == QXmlStreamReader::StartElement && reader.qualifiedName() == u"bookmark") {
            current = {.path = PathText::fromAddress(attributes.value("href").toUtf8()).value_or(QString()),
                       .lastUsed = lastOf(attributes, {"added", "modified", "visited"})};
        } else if (token == QXmlStreamReader::StartElement && reader.qualifiedName() == u"bookmark:application") {
            current.applications += {attributes.value("name").toString(), program(attributes.value("exec"))};
        } else if (token == QXmlStreamReader::EndElement && reader.qualifiedName() == u"bookmark" &&
                   !current.path.isEmpty()) {
            documents.append(current);
        }
    }
    return documents;
}

QList<RecentDocument> RecentDocuments::read()
{
    constexpr qint64 largest = 16 << 20;
    QFile file(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/recently-used.xbel");
    return file.open(QIODevice::ReadOnly) ? parsed(file.read(largest)) : QList<RecentDocument>();
}

} // namespace ardeno
