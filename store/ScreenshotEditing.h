// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RemovalUndo.h"

#include <QHash>

namespace ardeno {

class Failure;

// Gives a saved checkpoint another picture, or none. A write that fails leaves it as it was; as long as the undo names
// it, the former picture stays.
class ScreenshotEditing final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ScreenshotEditing)

public:
    ScreenshotEditing(Operations &operations, Library &library, CheckpointMedia &media, RemovalUndo &removals);

    // Makes a copy of the picture in this file the screenshot.
    QCoro::Task<Outcome> importScreenshot(QString file, QUuid checkpointID);
    Outcome removeScreenshot(QUuid checkpointID);

private:
    QCoro::Task<Outcome> addPicture(QString file, QUuid checkpointID);
    void importFailed(QUuid checkpointID, const Failure &failure, Outcome *outcome) const;
    void adoptScreenshot(QUuid checkpointID, const QString &path, Outcome *outcome);
    void pictureAdopted(const Checkpoint &before, MediaRemoval &removal, Outcome *outcome);
    Outcome clearScreenshot(const Checkpoint &before, MediaRemoval &removal);

    Operations &m_operations;
    Library &m_library;
    CheckpointMedia &m_media;
    RemovalUndo &m_removals;
    int m_imports = 0;                  // Pictures that were chosen so far.
    QHash<QUuid, int> m_adoptedImports; // By checkpoint, which of them it has.
};

} // namespace ardeno
