// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaStaging.h"

#include "model/WorkspaceRecords.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>

namespace ardeno {

namespace {

constexpr auto prefix = ".deleting-";

// Renames a folder; never onto an existing one with content.
std::optional<Failure> move(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return std::nullopt;
    return Failure::system(errno);
}

std::optional<Failure> removeAll(const QString &folder)
{
    std::error_code error;
    std::filesystem::remove_all(QFile::encodeName(folder).toStdString(), error);
    if (error)
        return Failure::system(error.value());
    return std::nullopt;
}

QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::Dirs | QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

MediaStaging::MediaStaging(const QString &root, const QList<QUuid> &checkpointIDs)
    : m_root(root), m_folder(root + '/' + prefix + uuidText(QUuid::createUuid()))
{
    bool isCreated = false;
    for (const QUuid &id : checkpointIDs) {
        const QString media = root + '/' + uuidText(id);
        if (!QFile::exists(media))
            continue;
        if (!isCreated && ::mkdir(QFile::encodeName(m_folder).constData(), 0700) != 0)
            throw Failure::system(errno);
        isCreated = true;
        if (const auto failure = move(media, m_folder + '/' + uuidText(id))) {
            putBack();
            throw Failure(*failure);
        }
    }
}

std::optional<Failure> MediaStaging::putBack()
{
    std::optional<Failure> first;
    for (const QString &name : entries(m_folder)) {
        if (auto failure = move(m_folder + '/' + name, m_root + '/' + name); failure && !first)
            first = std::move(failure);
    }
    if (!first)
        QDir().rmdir(m_folder);
    return first;
}

std::optional<Failure> MediaStaging::remove()
{
    return removeAll(m_folder);
}

void MediaStaging::resolveLeftovers(const QString &root, const QSet<QUuid> &existingCheckpointIDs)
{
    const QStringList folders = QDir(root).entryList({prefix + QString("*")}, QDir::Dirs | QDir::Hidden);
    for (const QString &name : folders) {
        MediaStaging staging(root + '/' + name, root);
        for (const QString &media : entries(staging.m_folder)) {
            const QString path = staging.m_folder + '/' + media;
            // A picture taken since then stands in the way of nothing: what was set aside is then kept where it is.
            if (existingCheckpointIDs.contains(QUuid(media)))
                move(path, root + '/' + media);
            else
                removeAll(path);
        }
        QDir().rmdir(staging.m_folder);
    }
}

} // namespace ardeno
