// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/MediaFolders.h"

#include "model/WorkspaceRecords.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>

namespace ardeno {

namespace {

const QString unsavedPrefix = ".saving-";
const QString arrivingSuffix = ".saving";
const QString leavingSuffix = ".removing";

QString hidden(const QString &path, const QString &suffix)
{
    return QFileInfo(path).path() + "/." + QFileInfo(path).fileName() + suffix;
}

bool isAbsence(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

Failure failureAt(const QString &path, int error)
{
    return Failure::system(error, QFileInfo(path).fileName());
}

// Of what stands there itself; zero when there is nothing. What does not answer is not taken for missing.
mode_t typeOf(const QString &path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) == 0)
        return status.st_mode & S_IFMT;
    if (!isAbsence(errno))
        throw failureAt(path, errno);
    return 0;
}

} // namespace

QString MediaFolders::own(const QString &root, const QUuid &id)
{
    return root + '/' + uuidText(id);
}

QString MediaFolders::unsaved(const QString &root, const QUuid &id)
{
    return root + '/' + unsavedPrefix + uuidText(id);
}

QUuid MediaFolders::idOfOwn(const QString &name)
{
    const QUuid id(name);
    return name == uuidText(id) ? id : QUuid();
}

QUuid MediaFolders::idOfUnsaved(const QString &name)
{
    return name.startsWith(unsavedPrefix) ? idOfOwn(name.sliced(unsavedPrefix.size())) : QUuid();
}

QString MediaFolders::arriving(const QString &path)
{
    return hidden(path, arrivingSuffix);
}

QString MediaFolders::leaving(const QString &path)
{
    return hidden(path, leavingSuffix);
}

std::optional<QString> MediaFolders::settled(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    for (const QString &suffix : {arrivingSuffix, leavingSuffix}) {
        const qsizetype length = name.size() - 1 - suffix.size();
        if (name.startsWith('.') && name.endsWith(suffix) && length > 0)
            return QFileInfo(path).path() + '/' + name.sliced(1, length);
    }
    return std::nullopt;
}

std::optional<QString> MediaFolders::fileOf(const QString &root, const QUuid &id, const QString &recorded)
{
    if (!QDir::isAbsolutePath(recorded))
        return std::nullopt;
    const QString path = QDir::cleanPath(recorded);
    const QString folder = path.section('/', -2, -2);
    const QString name = path.section('/', -1);
    if (folder.compare(uuidText(id), Qt::CaseInsensitive) != 0 || name.startsWith('.'))
        return std::nullopt;
    return own(root, id) + '/' + name;
}

bool MediaFolders::exists(const QString &path)
{
    return typeOf(path) != 0;
}

bool MediaFolders::isFolder(const QString &path)
{
    return typeOf(path) == S_IFDIR;
}

bool MediaFolders::isFile(const QString &path)
{
    return typeOf(path) == S_IFREG;
}

QStringList MediaFolders::entries(const QString &folder)
{
    QStringList names;
    std::error_code error;
    // The standard library's, since Qt's asks the system about every entry.
    for (std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error), end;
         !error && entry != end; entry.increment(error))
        names.append(QFile::decodeName(QByteArray::fromStdString(entry->path().filename().native())));
    if (error && !isAbsence(error.value()))
        throw failureAt(folder, error.value());
    return names;
}

std::optional<Failure> MediaFolders::move(const QString &from, const QString &to)
{
    try {
        if (!isFolder(from) && exists(to))
            return Failure::system(EEXIST);
    } catch (const Failure &failure) {
        return failure;
    }
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return std::nullopt;
    return Failure::system(errno);
}

std::optional<Failure> MediaFolders::removeAll(const QString &path)
{
    std::error_code error;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), error);
    return error ? std::optional(Failure::system(error.value())) : std::nullopt;
}

} // namespace ardeno
