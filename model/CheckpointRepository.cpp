// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"

#include "model/LibraryFile.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

namespace ardeno {

namespace {

const QString libraryName = "checkpoints.json";

// Whether a library that cannot be decoded stands there, which may be replaced once it is copied aside.
bool isUndecodable(const Failure &failure)
{
    const auto reason = static_cast<LibraryFailure>(failure.code());
    return failure.domain() == "Library" && (reason == LibraryFailure::Damaged || reason == LibraryFailure::TooLarge);
}

Failure changed()
{
    return {"Library", static_cast<int>(LibraryFailure::Changed),
            u"“%1” has been changed by another program."_qs.arg(libraryName)};
}

bool hasSameContent(const LibraryFile &a, const LibraryFile &b)
{
    return a.projects == b.projects && a.checkpoints.records() == b.checkpoints.records();
}

// A name of that form that is still free.
QString unreadableName(const QString &root)
{
    const QString base = "checkpoints-unreadable-" + QDateTime::currentDateTimeUtc().toString("yyyyMMdd'T'HHmmss'Z'");
    QString name = base + ".json";
    for (int i = 2; QFileInfo::exists(root + '/' + name); ++i)
        name = u"%1-%2.json"_qs.arg(base).arg(i);
    return name;
}

} // namespace

QString MediaFile::importedImage()
{
    return "image-" + uuidText(QUuid::createUuid()) + ".png";
}

// What is known of the file on disk.
struct CheckpointRepository::Memory {
    struct Copy {
        FileStamp original = {};
        QString path = {};
    };

    std::optional<LibraryFile> file = {};
    std::optional<Copy> kept = {}; // An undecodable file that has been copied aside.
    std::function<void()> check = [] {};
};

CheckpointRepository::CheckpointRepository(QString root) : m_root(std::move(root)), m_memory(std::make_shared<Memory>())
{
}

QString CheckpointRepository::defaultRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Ardeno";
}

WorkspaceLibrary CheckpointRepository::loadLibrary() const
{
    std::optional<LibraryFile> &file = m_memory->file;
    file.reset(); // Also when the file cannot be read now.
    file = LibraryFile::read(pathOf(libraryName));
    WorkspaceLibrary library;
    if (file) {
        library.projects = file->projects;
        library.checkpoints = file->checkpoints.records();
        library.assignMissingProjects();
    }
    return library;
}

bool CheckpointRepository::hasFile() const
{
    return m_memory->file.has_value();
}

LibraryWrite CheckpointRepository::saveLibrary(WorkspaceLibrary library) const
{
    AtomicFile::createFolder(m_root);
    library.assignMissingProjects();
    const QString path = pathOf(libraryName);
    const std::optional<FileStamp> replaced = FileStamp::ofFile(path);
    LibraryWrite written{.keptCopy = lookAt(replaced)};
    keepOlderFormat();

    LibraryFile next;
    next.projects = std::move(library.projects);
    const std::optional<LibraryFile> &known = m_memory->file;
    next.checkpoints =
        known ? known->checkpoints.updated(library.checkpoints) : EncodedCheckpoints().updated(library.checkpoints);
    written.isDurable = next.write(path, [&] {
        m_memory->check();
        const std::optional<FileStamp> now = FileStamp::ofFile(path);
        if (now && now != replaced)
            throw changed();
    });
    m_memory->file = std::move(next);
    return written;
}

void CheckpointRepository::setWriteCheck(std::function<void()> check) const
{
    m_memory->check = std::move(check);
}

// Looks at what is about to be replaced, unless it is the file that was read or written last. The copy that was made
// of a file that cannot be decoded.
std::optional<QString> CheckpointRepository::lookAt(const std::optional<FileStamp> &stamp) const
{
    std::optional<LibraryFile> &file = m_memory->file;
    if (stamp && file && stamp == file->stamp)
        return std::nullopt;
    std::optional<LibraryFile> found;
    try {
        found = LibraryFile::read(pathOf(libraryName));
    } catch (const Failure &failure) {
        if (!stamp || !isUndecodable(failure))
            throw;
        file.reset();
        return keepUndecodable(*stamp, failure.description());
    }
    // Where there is no file any more, the one that was known has nothing left to lose.
    if (found && !(file && hasSameContent(*file, *found)))
        throw changed();
    file = std::move(found);
    return std::nullopt;
}

// The path of the copy.
QString CheckpointRepository::keepUndecodable(const FileStamp &stamp, const QString &reason) const
{
    std::optional<Memory::Copy> &kept = m_memory->kept;
    if (kept && kept->original == stamp)
        return kept->path;
    if (QFileInfo(pathOf(libraryName)).isSymLink())
        throw Failure("Library", static_cast<int>(LibraryFailure::Damaged),
                      reason + " It is a link, and the file that it leads to has been left as it is.");
    const QString copy = pathOf(unreadableName(m_root));
    try {
        AtomicFile::copyToNew(pathOf(libraryName), copy);
    } catch (const Failure &failure) {
        throw Failure(
            failure.domain(), failure.code(),
            u"%1 It could not be copied aside, so it has not been replaced: %2"_qs.arg(reason, failure.description()));
    }
    kept = {stamp, copy};
    return copy;
}

void CheckpointRepository::keepOlderFormat() const
{
    const std::optional<LibraryFile> &file = m_memory->file;
    if (file ? file->isLegacy : LibraryFile::startsAsLegacy(pathOf(libraryName)))
        keepBackup("checkpoints-before-projects.json");
    if (file && file->hasDecision)
        keepBackup("checkpoints-before-context-merge.json");
}

void CheckpointRepository::keepBackup(const QString &name) const
{
    if (!QFileInfo(pathOf(name)).isSymLink() && !QFileInfo::exists(pathOf(name)))
        AtomicFile::copyToNew(pathOf(libraryName), pathOf(name));
}

QStringList CheckpointRepository::warnings() const
{
    struct stat status;
    if (::stat(QFile::encodeName(m_root).constData(), &status) != 0)
        return {};
    const bool isForeign = status.st_uid != ::geteuid() && status.st_uid != 0;
    if (!isForeign && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0)
        return {};
    return {QCoreApplication::translate("ardeno::CheckpointRepository",
                                        "Other users may change the files in “%1”, where your checkpoints are.")
                .arg(m_root)};
}

QString CheckpointRepository::directory(const QUuid &checkpointID) const
{
    const QString folder = pathOf(uuidText(checkpointID));
    AtomicFile::createFolder(folder);
    return folder;
}

} // namespace ardeno
