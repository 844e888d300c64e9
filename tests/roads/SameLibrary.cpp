// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/roads/SameLibrary.h"

#include "tests/support/Files.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace ardeno {

namespace {

// What was imported is told by its bytes, the rest by its name.
QString picture(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    if (!name.startsWith("image-"))
        return name + (QFile::exists(path) ? "" : " is missing");
    return QCryptographicHash::hash(fileBytes(path), QCryptographicHash::Sha256).toHex();
}

} // namespace

QByteArray SameLibrary::of(const QString &root)
{
    const QJsonObject library = QJsonDocument::fromJson(fileBytes(root + "/checkpoints.json")).object();
    QString text = QJsonDocument(library).toJson() + fileBytes(root + "/exclusions.json");
    for (const QJsonValue &checkpoint : library.value("checkpoints").toArray()) {
        const QString path = checkpoint.toObject().value("screenshot").toString();
        if (!path.isEmpty())
            text.replace(path, picture(path));
    }
    for (const QJsonValue &project : library.value("projects").toArray())
        text.replace(project.toObject().value("id").toString(), project.toObject().value("name").toString());
    static const QRegularExpression time(R"re(("(?:createdAt|archivedAt)": )[^,\n]*)re");
    static const QRegularExpression identifier("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
    text.replace(time, "\\1a time").replace(identifier, "an identifier");
    int media = 0;
    for (const QString &folder : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        media += static_cast<int>(QDir(root + '/' + folder).count());
    return text.toUtf8() + "media: " + QByteArray::number(media);
}

} // namespace ardeno
