// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/roads/SameLibrary.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace ardeno {

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Comparable final {
public:
    explicit Comparable(const QHash<QString, QString> &names) : m_names(names) {}

    QJsonValue of(const QString &key, const QJsonValue &value) const
    {
        if (value.isObject())
            return ofObject(value.toObject());
        if (value.isArray())
            return ofArray(value.toArray());
        if (key == "createdAt" || key == "archivedAt")
            return "a time";
        if (key == "screenshot")
            return picture(value.toString());
        if (!value.isString() || QUuid(value.toString()).isNull())
            return value;
        return m_names.value(value.toString(), "an identifier");
    }

private:
    QJsonObject ofObject(const QJsonObject &object) const
    {
        QJsonObject result;
        for (auto entry = object.begin(); entry != object.end(); ++entry)
            result.insert(entry.key(), of(entry.key(), entry.value()));
        return result;
    }

    QJsonArray ofArray(const QJsonArray &array) const
    {
        QJsonArray result;
        for (const QJsonValue &value : array)
            result.append(of({}, value));
        return result;
    }

    static QString picture(const QString &path)
    {
        if (!QFileInfo(path).fileName().startsWith("image-"))
            return QFileInfo(path).fileName() + (QFile::exists(path) ? "" : " is missing");
        return QCryptographicHash::hash(bytesOf(path), QCryptographicHash::Sha256).toHex();
    }

    QHash<QString, QString> m_names; // Of projects.
};

} // namespace

QByteArray SameLibrary::of(const QString &root)
{
    const QJsonObject library = QJsonDocument::fromJson(bytesOf(root + "/checkpoints.json")).object();
    QHash<QString, QString> names;
    for (const QJsonValue &project : library.value("projects").toArray())
        names.insert(project.toObject().value("id").toString(), project.toObject().value("name").toString());
    QJsonObject all{{"library", Comparable(names).of({}, library)}};
    all.insert("exclusions",
               Comparable(names).of({}, QJsonDocument::fromJson(bytesOf(root + "/exclusions.json")).object()));
    int media = 0;
    for (const QString &folder : QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        media += static_cast<int>(QDir(root + '/' + folder).count());
    all.insert("media", media);
    return QJsonDocument(all).toJson();
}

} // namespace ardeno
