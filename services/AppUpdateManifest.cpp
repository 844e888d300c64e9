// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/AppUpdateManifest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ardeno {

namespace {

constexpr qsizetype mostNotes = 100;
constexpr qsizetype longestNote = 1000;

// A value that is not there or null is absent; one of another type makes the whole document unreadable.
bool readOptional(const QJsonObject &object, const char *key, std::optional<QString> *text)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isString())
        *text = value.toString();
    return value.isString() || value.isNull() || value.isUndefined();
}

bool readOptional(const QJsonObject &object, const char *key, std::optional<QUrl> *link)
{
    std::optional<QString> text;
    if (!readOptional(object, key, &text))
        return false;
    if (text)
        *link = QUrl(*text, QUrl::StrictMode);
    return !text || (*link)->isValid();
}

std::optional<QStringList> readNotes(const QJsonValue &value)
{
    if (!value.isArray())
        return std::nullopt;
    QStringList notes;
    for (const QJsonValue note : value.toArray()) {
        if (!note.isString())
            return std::nullopt;
        if (notes.size() < mostNotes)
            notes.append(note.toString().left(longestNote));
    }
    return notes;
}

} // namespace

std::optional<AppUpdateManifest> AppUpdateManifest::fromJson(const QByteArray &bytes)
{
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const QJsonValue version = object.value(QLatin1String("latestVersion"));
    const std::optional<QStringList> notes = readNotes(object.value(QLatin1String("releaseNotes")));
    AppUpdateManifest manifest;
    const bool isRead = version.isString() && notes &&
                        readOptional(object, "minimumSupportedVersion", &manifest.minimumSupportedVersion) &&
                        readOptional(object, "releaseNotesURL", &manifest.releaseNotesURL) &&
                        readOptional(object, "downloadURL", &manifest.downloadURL);
    if (!isRead)
        return std::nullopt;
    manifest.latestVersion = version.toString();
    manifest.releaseNotes = *notes;
    return manifest;
}

bool isOpenable(const std::optional<QUrl> &link)
{
    // QUrl has made the scheme lower case.
    return link && link->isValid() && link->scheme() == "https" && !link->host().isEmpty();
}

} // namespace ardeno
