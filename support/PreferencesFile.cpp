// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/PreferencesFile.h"

#include "support/Failure.h"
#include "support/OwnFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryFile>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace ardeno {

namespace {

constexpr qint64 largestSettings = 16 << 20; // Bytes.

Failure notSettings(const QString &what)
{
    return {"Settings", 1, what};
}

// A link to settings of the same name is somebody's way to keep them; any other leads to what is not ours.
bool isForeignLink(const QString &path)
{
    const QFileInfo file(path);
    return file.isSymLink() && QFileInfo(file.canonicalFilePath()).fileName() != file.fileName();
}

// Whether that stands in the way of settings for good, and is nothing that the system may tell otherwise next time.
bool isNoFile(const Failure &failure)
{
    return failure.code() == EINVAL || failure.code() == ELOOP || failure.code() == EFBIG;
}

// QSettings takes any bytes for settings.
bool areOlderSettings(const QByteArray &bytes)
{
    const QList<QByteArray> lines = bytes.split('\n');
    const bool areLines = std::all_of(lines.begin(), lines.end(), [](const QByteArray &line) {
        const QByteArray text = line.trimmed();
        return text.isEmpty() || text.startsWith(';') || text.startsWith('#') || text.startsWith('[') ||
               text.indexOf('=') > 0;
    });
    return areLines && !bytes.contains('\0') && !bytes.trimmed().isEmpty();
}

// Read from a copy, since QSettings would take what it cannot read for empty.
QVariantMap olderSettings(const QByteArray &bytes)
{
    QTemporaryFile copy;
    if (!copy.open() || copy.write(bytes) != bytes.size() || !copy.flush())
        throw Failure("POSIX", EIO, copy.errorString());
    const QSettings settings(copy.fileName(), QSettings::IniFormat);
    QVariantMap values;
    for (const QString &name : settings.allKeys()) {
        const QVariant value = settings.value(name);
        values.insert(name, value.typeId() == QMetaType::QByteArray ? QString::fromUtf8(value.toByteArray()) : value);
    }
    return values;
}

} // namespace

PreferencesFile::PreferencesFile(const QString &folder) : m_folder(folder) {}

std::optional<QVariantMap> PreferencesFile::read()
{
    if (isForeignLink(path()) || isForeignLink(olderPath()))
        throw notSettings("it is a link to something else");
    try {
        return readFile();
    } catch (const Failure &failure) {
        m_stamp.reset();
        if (isNoFile(failure))
            throw notSettings(failure.description());
        throw;
    }
}

std::optional<QVariantMap> PreferencesFile::readFile()
{
    const std::optional<FileStamp> now = FileStamp::ofFile(path());
    if (now && now == m_stamp)
        return m_known;
    m_stamp.reset();
    if (const auto bytes = OwnFile::read(path(), largestSettings, OwnFile::Links::Followed)) {
        const QJsonDocument document = QJsonDocument::fromJson(*bytes);
        if (!document.isObject())
            throw notSettings("it is damaged");
        m_known = document.object().toVariantMap();
        m_stamp = now;
        return m_known;
    }
    const auto older = OwnFile::read(olderPath(), largestSettings, OwnFile::Links::Followed);
    if (!older)
        return std::nullopt;
    if (!areOlderSettings(*older))
        throw notSettings("it is damaged");
    return olderSettings(*older);
}

QVariantMap PreferencesFile::write(const QVariantMap &changes)
{
    QVariantMap values = read().value_or(QVariantMap());
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        if (change->isValid())
            values.insert(change.key(), *change);
        else
            values.remove(change.key());
    }
    AtomicFile::createFolder(m_folder);
    const QByteArray bytes = QJsonDocument(QJsonObject::fromVariantMap(values)).toJson();
    const QByteArrayView pieces[] = {bytes};
    const auto written = AtomicFile::write(path(), pieces, [this] {
        if (FileStamp::ofFile(path()) != m_stamp)
            throw Failure("Settings", 2, "The settings have been changed by another program.");
    });
    m_stamp = written.stamp;
    m_known = QJsonObject::fromVariantMap(values).toVariantMap();
    std::remove(QFile::encodeName(olderPath()).constData()); // All of it is in the new file.
    return m_known;
}

std::optional<QString> PreferencesFile::moveAside() const
{
    const bool isNewer = QFileInfo(path()).isSymLink() || QFileInfo::exists(path());
    const QString time = QDateTime::currentDateTimeUtc().toString("yyyyMMdd'T'HHmmss'Z'");
    const QString kept = m_folder + u"/settings-unreadable-%1.%2"_qs.arg(time, QString(isNewer ? "json" : "ini"));
    const QByteArray from = QFile::encodeName(isNewer ? path() : olderPath());
    return std::rename(from.constData(), QFile::encodeName(kept).constData()) == 0 ? std::optional(kept) : std::nullopt;
}

bool PreferencesFile::hasMovedAside() const
{
    return !QDir(m_folder).entryList({"settings-unreadable-*"}, QDir::AllEntries | QDir::System).isEmpty();
}

} // namespace ardeno
