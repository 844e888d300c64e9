// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopFolders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>

#include <algorithm>

namespace ardeno {

namespace {

// A folder may hold a link to one above it.
constexpr int deepestFolder = 4;

} // namespace

DesktopFolders::DesktopFolders(const QStringList &roots)
{
    for (const QString &root : roots)
        list(root, QString(), 0);
}

QStringList DesktopFolders::standardRoots()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

bool DesktopFolders::haveChanged() const
{
    return std::any_of(m_folders.begin(), m_folders.end(),
                       [](const Folder &folder) { return changeTime(folder.path) != folder.changed; });
}

void DesktopFolders::list(const QString &folder, const QString &prefix, int depth)
{
    m_folders.append({folder, changeTime(folder)});
    const QFileInfoList found = QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo &file : found) {
        const QString name = file.fileName();
        if (file.isDir() && depth < deepestFolder)
            list(file.filePath(), prefix + name + '-', depth + 1);
        const QString id = prefix + name.chopped(name.endsWith(".desktop") ? qsizetype(8) : 0);
        if (!name.endsWith(".desktop") || !file.isFile())
            continue;
        m_allFiles.insert(id, file.filePath());
        if (!m_files.contains(id))
            m_files.insert(id, file.filePath());
    }
}

qint64 DesktopFolders::changeTime(const QString &folder)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0)
        return 0;
    return qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec;
}

} // namespace ardeno
