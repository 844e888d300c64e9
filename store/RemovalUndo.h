// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CheckpointMedia.h"
#include "store/Operations.h"

namespace ardeno {

class MediaRemoval;

// What was removed last comes back. The file of a picture stands aside until it is let go.
class RemovalUndo final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::RemovalUndo)

public:
    template <typename T>
    using Published = PublishedBy<T, RemovalUndo>;

    Published<std::optional<WorkspaceRemoval>> lastRemoval; // What an undo brings back.

    RemovalUndo(Operations &operations, Messages &messages, Library &library, CheckpointMedia &media);

    Outcome undoWorkspaceRemoval();

    // What can be undone from now on; what could be until now leaves for good.
    void remember(const std::optional<WorkspaceRemoval> &removal);
    // After a change that may have made the undo impossible.
    void look();
    // At the end of the program.
    void settleLast();

    // A change failed: the file takes its place again.
    static void putBack(MediaRemoval &removal, Outcome *outcome);

private:
    void settleRemoved(const WorkspaceRemoval &removal);
    bool isUndoable(const WorkspaceRemoval &removal) const;
    bool isNamed(const QUuid &checkpointID, const QString &file) const;
    Outcome putPictureBack(const Checkpoint &before, const RemovedPicture &picture);

    Operations &m_operations;
    Messages &m_messages;
    Library &m_library;
    CheckpointMedia &m_media;
};

} // namespace ardeno
