// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/RemovalUndo.h"

#include <QHash>

#include <atomic>
#include <memory>

namespace ardeno {

class Failure;

// Gives a saved checkpoint another picture, or none. A write that fails leaves it as it was; as long as the undo names
// it, the former picture stays.
class ScreenshotEditing final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ScreenshotEditing)

public:
    PublishedBy<QList<QUuid>, ScreenshotEditing> addingPictures; // Whose image is being imported.

    ScreenshotEditing(Operations &operations, Library &library, CheckpointMedia &media, RemovalUndo &removals);

    // Makes a copy of the picture in this file the screenshot.
    QCoro::Task<Outcome> importScreenshot(QString file, QUuid checkpointID);
    // The picture stays as it was, unless the new one is there already.
    void stopAddingPicture(QUuid checkpointID);
    Outcome removeScreenshot(QUuid checkpointID);

private:
    // An import, which goes on as long as it is wanted.
    struct PictureImport {
        QUuid checkpointID;
        int number = 0;
        std::shared_ptr<std::atomic<bool>> isWanted = std::make_shared<std::atomic<bool>>(true);
    };

    QCoro::Task<Outcome> addPicture(QString file, PictureImport import);
    void showImports();
    void importFailed(QUuid checkpointID, const Failure &failure, Outcome *outcome) const;
    void adoptScreenshot(QUuid checkpointID, const QString &path, Outcome *outcome);
    void pictureAdopted(const Checkpoint &before, MediaRemoval &removal, Outcome *outcome);
    Outcome clearScreenshot(const Checkpoint &before, MediaRemoval &removal);

    Operations &m_operations;
    Library &m_library;
    CheckpointMedia &m_media;
    RemovalUndo &m_removals;
    QList<PictureImport> m_imports;     // That go on.
    int m_lastNumber = 0;               // Of the pictures that were chosen so far.
    QHash<QUuid, int> m_adoptedNumbers; // By checkpoint, which of them it has.
};

} // namespace ardeno
