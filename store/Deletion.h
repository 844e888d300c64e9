// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RemovalUndo.h"
#include "store/SessionRecorder.h"

namespace ardeno {

// Deletes projects and checkpoints together with their media.
class Deletion final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::Deletion)

public:
    struct Parts {
        Operations &operations;
        Library &library;
        Navigation &navigation;
        CheckpointMedia &media;
        RemovalUndo &removals;
        const SessionRecorder &recorder; // What it is about cannot be deleted.
        // Takes a project that has gone out of everything else that names it.
        std::function<void(const QUuid &projectID)> forget;
    };

    explicit Deletion(Parts parts) : m_parts(std::move(parts)) {}

    Outcome deleteProject(QUuid id);
    Outcome deleteCheckpoint(QUuid id);

private:
    struct Texts {
        QString failed;
        QString remains; // What is said before the folder whose media could not be removed.
    };

    // Takes checkpoints out of the library and gives their identifiers; absent when there is nothing to take.
    using TakeCheckpoints = std::function<std::optional<QSet<QUuid>>(WorkspaceLibrary &library)>;
    bool commitDeletion(const TakeCheckpoints &take, const Texts &texts, Outcome *outcome);
    void forgetProject(QUuid id);

    Parts m_parts;
};

} // namespace ardeno
