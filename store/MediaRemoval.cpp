// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaRemoval.h"

#include "model/WorkspaceRecords.h"
#include "support/Failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace ardeno {

namespace {

void rename(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw Failure::system(errno);
}

} // namespace

bool MediaRemoval::isAllowed(const QString &path, const QString &root, const QUuid &checkpointID)
{
    if (!QDir::isAbsolutePath(path))
        return false;
    const QFileInfo file(path);
    if (file.isSymLink() || (file.exists() && !file.isFile()))
        return false;
    const QFileInfo folder(file.path());
    const QString name = '/' + uuidText(checkpointID);
    return folder.exists() ? folder.canonicalFilePath() == QFileInfo(root).canonicalFilePath() + name
                           : QDir::cleanPath(folder.filePath()) == QDir::cleanPath(root + name);
}

MediaRemoval::MediaRemoval(const QString &path)
    : m_path(path), m_aside(QFileInfo(path).path() + "/." + QFileInfo(path).fileName() + ".removing")
{
    if (!QFileInfo::exists(path))
        return;
    rename(m_path, m_aside);
    m_isAside = true;
}

void MediaRemoval::putBack()
{
    if (m_isAside)
        rename(m_aside, m_path);
    m_isAside = false;
}

void MediaRemoval::finish()
{
    if (m_isAside && ::unlink(QFile::encodeName(m_aside).constData()) != 0)
        throw Failure::system(errno);
    m_isAside = false;
}

} // namespace ardeno
