// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"
#include "support/AtomicFile.h"

#include <QString>
#include <QStringList>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>

namespace ardeno {

// Names of the files in a checkpoint's media folder.
namespace MediaFile {

inline constexpr const char *screenshot = "snapshot.png";
inline constexpr const char *recording = "session.mp4";
// A name of its own for every imported image: "image-<UUID>.png".
QString importedImage();

} // namespace MediaFile

// What a save came to, besides the new library.
struct LibraryWrite {
    std::optional<QString> keptCopy = {}; // The path of a copy of what stood there and could not be read.
    bool isDurable = true;                // False: it may not survive a power cut.
};

// The library on disk: one file for all projects and checkpoints, and a media folder for each checkpoint. A small
// value; copies share what is known of the file. All functions but root() throw Failure.
class CheckpointRepository final {
public:
    explicit CheckpointRepository(QString root);

    // "$XDG_DATA_HOME/Ardeno".
    static QString defaultRoot();

    const QString &root() const { return m_root; }

    // Every checkpoint has a project and no decision; nothing is written. Empty when there is no file.
    WorkspaceLibrary loadLibrary() const;

    // Replaces the file that was read or written last, after missing projects were assigned. What an older format or a
    // damaged file holds is kept beside it before. Nothing is replaced that is of a newer version, that the system did
    // not let read, or that somebody else put there (LibraryFailure::Changed: load it, and make the change again).
    LibraryWrite saveLibrary(WorkspaceLibrary library) const;

    // Called before each replacement of the file, which ends by what it throws: for whoever holds the library's lock.
    void setWriteCheck(std::function<void()> check) const;

    // Whether there is a file that was read or written here; an empty library may also be one that is missing.
    bool hasFile() const;

    // Sentences about the folder that the user should know.
    QStringList warnings() const;

    // The media folder of a checkpoint, created when it is missing.
    QString directory(const QUuid &checkpointID) const;

private:
    struct Memory;

    QString pathOf(const QString &name) const { return m_root + '/' + name; }

    std::optional<QString> lookAt(const std::optional<FileStamp> &stamp) const;
    QString keepUndecodable(const FileStamp &stamp, const QString &reason) const;
    void keepOlderFormat() const;
    void keepBackup(const QString &name) const;

    QString m_root;
    std::shared_ptr<Memory> m_memory;
};

} // namespace ardeno
