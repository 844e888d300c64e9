// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QString>
#include <QUuid>

#include <memory>

namespace ardeno {

// Names of the files in a checkpoint's media folder.
namespace MediaFile {

inline constexpr const char *screenshot = "snapshot.png";
inline constexpr const char *recording = "session.mp4";
// A name of its own for every imported image: "image-<UUID>.png".
QString importedImage();

} // namespace MediaFile

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

    // Replaces the file, after missing projects were assigned. What an older format or an unreadable file holds is kept
    // beside it before; a file of a newer version is not touched.
    void saveLibrary(WorkspaceLibrary library) const;

    // The media folder of a checkpoint, created when it is missing.
    QString directory(const QUuid &checkpointID) const;

    // Removes the media folder with everything in it; a missing one is fine.
    void removeFiles(const QUuid &checkpointID) const;

private:
    struct Memory;

    QString pathOf(const QString &name) const { return m_root + '/' + name; }

    void learnExisting() const;
    void keepUnreadable(const QString &reason) const;
    void keepBackup(const QString &name) const;

    QString m_root;
    std::shared_ptr<Memory> m_memory;
};

} // namespace ardeno
