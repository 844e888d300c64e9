// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/CheckpointRepository.h"
#include "store/Messages.h"
#include "store/OwnedCheckpoint.h"
#include "store/ProjectHistories.h"

#include <QCoreApplication>
#include <QSet>

#include <functional>

namespace ardeno {

class UnsavedSessions;

// The projects and checkpoints, in memory and on disk. Every change is written first and published second; whoever only
// shows the library gets it const.
class Library final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::Library)

public:
    template <typename T>
    using Published = PublishedBy<T, Library>;

    Published<QList<Project>> projects;
    Published<QList<Checkpoint>> checkpoints;
    Published<Checkpoint> sampleCheckpoint;
    Published<QList<Checkpoint>> sampleHistory;

    // Called when the lists have changed, before anybody who watches them hears of it, and when another program's
    // library has taken the place of this one.
    struct Followers {
        std::function<void()> published;
        std::function<void()> replaced;
    };

    // Asked before every change; throws Failure where it is not to be made any more.
    using BeforeWrite = std::function<void()>;

    Library(CheckpointRepository repository, BeforeWrite beforeWrite, Messages &messages, UnsavedSessions &unsaved,
            Followers followers);

    // What cannot be read is left in place and named in error. Without a function the repository is read.
    void read(const std::function<WorkspaceLibrary()> &load);
    // From now on the sample project is shown while there is no other.
    void prepareSamples();

    // False when the library exists and could not be read; the lists are then empty.
    bool isLibraryRead() const { return m_isLibraryRead; }

    // Where everything is saved.
    const QString &storageFolder() const { return m_repository.root(); }

    const Project *project(const QUuid &id) const;
    const Checkpoint *checkpoint(const QUuid &id) const;
    QList<Project> availableProjects() const;
    // Newest first. While the library has no project, the sample project is the one whose checkpoints these are; no
    // operation changes or writes it.
    QList<Checkpoint> checkpointsFor(const QUuid &projectID) const;
    bool isShowingSamples() const;

    const Project &sampleProject() const { return m_sampleProject; }

    // A copy to change, of a checkpoint that may be changed.
    std::optional<Checkpoint> editable(const QUuid &id) const;
    OwnedCheckpoint owned(const Checkpoint &checkpoint) const;

    // The folder of a checkpoint's media, made where it is missing. Throws Failure, also where a link leads elsewhere.
    QString mediaFolder(const QUuid &checkpointID) const;
    // Brings media and library together, and gives the checkpoints of the folders with a journal.
    QSet<QUuid> resolveMedia() const;
    // Removes media that are on their way into the library, for a process that ends before they got there.
    void discardUnsaved() const;

    // A change of the library; false when there is nothing to change. It is made once more where another program has
    // changed the library meanwhile.
    using Change = std::function<bool(WorkspaceLibrary &library)>;
    // In between, media settle where the library now says that they are; that may throw Failure.
    using SettleMedia = std::function<void()>;
    // The only way to change the library: on disk first, on screen second.
    bool commit(const Change &change, const QString &failurePrefix, Outcome *outcome, const SettleMedia &settle = {});
    // In the place of the checkpoint with its identifier, or as a new one.
    bool write(OwnedCheckpoint saved, Outcome *outcome, const SettleMedia &settle = {});
    // Changes a saved checkpoint; samples and what is not in the library stay untouched. Not concluded; "what" is the
    // matter. The change says whether there is anything to write.
    Outcome edit(QUuid checkpointID, const char *what, const std::function<bool(Checkpoint &)> &change,
                 const QString &failurePrefix = {}, const SettleMedia &settle = {});

private:
    bool writeChanged(const Change &change, Outcome *outcome, const SettleMedia &settle);
    void publish(WorkspaceLibrary library);
    void readAgain(Outcome *outcome);

    CheckpointRepository m_repository;
    BeforeWrite m_beforeWrite;
    Messages &m_messages;
    UnsavedSessions &m_unsaved;
    Followers m_followers;
    mutable ProjectHistories m_histories = {}; // It remembers what it was asked last.
    Project m_sampleProject = {};
    bool m_isLibraryRead = false;
};

} // namespace ardeno
