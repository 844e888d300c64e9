// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"

#include "model/LibraryFile.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <utility>

namespace ardeno {

namespace {

const QString libraryName = "checkpoints.json";

bool isReasonToRefuse(const Failure &failure)
{
    const auto reason = static_cast<LibraryFailure>(failure.code());
    return failure.domain() == "Library" && (reason == LibraryFailure::Newer || reason == LibraryFailure::DanglingLink);
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
    std::optional<LibraryFile> file = {};
    std::optional<FileStamp> kept = {}; // An unreadable file that has been copied aside.
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

void CheckpointRepository::saveLibrary(WorkspaceLibrary library) const
{
    AtomicFile::createFolder(m_root);
    library.assignMissingProjects();
    learnExisting();

    LibraryFile next;
    next.projects = std::move(library.projects);
    const std::optional<LibraryFile> &known = m_memory->file;
    next.checkpoints =
        known ? known->checkpoints.updated(library.checkpoints) : EncodedCheckpoints().updated(library.checkpoints);
    next.write(pathOf(libraryName));
    m_memory->file = std::move(next);
}

// Looks at the file that is about to be replaced, unless it is the one that was read or written last, and keeps what
// would be lost.
void CheckpointRepository::learnExisting() const
{
    const QString path = pathOf(libraryName);
    const std::optional<FileStamp> stamp = FileStamp::ofFile(path);
    std::optional<LibraryFile> &file = m_memory->file;
    if (!file || stamp != file->stamp) {
        file.reset();
        try {
            file = LibraryFile::read(path);
        } catch (const Failure &failure) {
            if (isReasonToRefuse(failure))
                throw;
            keepUnreadable(failure.description());
        }
    }
    if (file ? file->isLegacy : LibraryFile::startsAsLegacy(path))
        keepBackup("checkpoints-before-projects.json");
    if (file && file->hasDecision)
        keepBackup("checkpoints-before-context-merge.json");
}

void CheckpointRepository::keepUnreadable(const QString &reason) const
{
    const QString path = pathOf(libraryName);
    const std::optional<FileStamp> stamp = FileStamp::ofFile(path);
    if (stamp && stamp == m_memory->kept)
        return;
    try {
        AtomicFile::copyToNew(path, pathOf(unreadableName(m_root)));
    } catch (const Failure &failure) {
        throw Failure(
            failure.domain(), failure.code(),
            u"%1 It could not be copied aside, so it has not been replaced: %2"_qs.arg(reason, failure.description()));
    }
    m_memory->kept = stamp;
}

void CheckpointRepository::keepBackup(const QString &name) const
{
    if (!QFileInfo(pathOf(name)).isSymLink() && !QFileInfo::exists(pathOf(name)))
        AtomicFile::copyToNew(pathOf(libraryName), pathOf(name));
}

QString CheckpointRepository::directory(const QUuid &checkpointID) const
{
    const QString folder = pathOf(uuidText(checkpointID));
    AtomicFile::createFolder(folder);
    return folder;
}

void CheckpointRepository::removeFiles(const QUuid &checkpointID) const
{
    const QByteArray folder = QFile::encodeName(pathOf(uuidText(checkpointID)));
    std::error_code error;
    std::filesystem::remove_all(folder.constData(), error);
    if (error && error != std::errc::no_such_file_or_directory)
        throw Failure::system(error.value());
}

} // namespace ardeno
