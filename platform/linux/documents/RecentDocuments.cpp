// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/RecentDocuments.h"

#include "platform/linux/files/PathText.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace ardeno {

namespace {

// The value of an attribute in the text of one element; empty when it has none.
QByteArray attribute(const QByteArray &element, const QByteArray &name)
{
    const qsizetype start = element.indexOf(' ' + name + "=\"");
    if (start < 0)
        return {};
    const qsizetype begin = start + name.size() + 3;
    QByteArray value = element.mid(begin, element.indexOf('"', begin) - begin);
    return value.replace("&apos;", "'")
        .replace("&quot;", "\"")
        .replace("&lt;", "<")
        .replace("&gt;", ">")
        .replace("&amp;", "&");
}

QDateTime time(const QByteArray &element, const QByteArray &name)
{
    constexpr qsizetype toSeconds = 19; // The fraction has more digits than a date takes.
    return QDateTime::fromString(QString::fromLatin1(attribute(element, name).left(toSeconds)) + 'Z', Qt::ISODate);
}

// "'evince %u'" → "evince".
QString program(const QByteArray &command)
{
    QByteArray words = command.trimmed();
    if (words.startsWith('\''))
        words.remove(0, 1);
    const QByteArray first = words.left(words.indexOf(' '));
    return QString::fromUtf8(first.mid(first.lastIndexOf('/') + 1)).remove('\'');
}

QStringList applications(const QByteArray &bookmark)
{
    static const QByteArray mark("<bookmark:application ");
    QStringList names;
    for (qsizetype at = bookmark.indexOf(mark); at >= 0; at = bookmark.indexOf(mark, at + 1)) {
        const QByteArray element = bookmark.mid(at, bookmark.indexOf('>', at) - at);
        names.append(QString::fromUtf8(attribute(element, "name")));
        names.append(program(attribute(element, "exec")));
    }
    return names;
}

} // namespace

QList<RecentDocument> RecentDocuments::parsed(const QByteArray &text)
{
    static const QByteArray mark("<bookmark ");
    QList<RecentDocument> documents;
    for (qsizetype at = text.indexOf(mark); at >= 0;) {
        const qsizetype next = text.indexOf(mark, at + 1);
        const QByteArray bookmark = text.mid(at, next < 0 ? -1 : next - at);
        const QByteArray element = bookmark.left(bookmark.indexOf('>'));
        if (const auto path = PathText::fromAddress(attribute(element, "href"))) {
            const QDateTime lastUsed =
                std::max({time(element, "added"), time(element, "modified"), time(element, "visited")});
            documents.append({*path, lastUsed, applications(bookmark)});
        }
        at = next;
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
