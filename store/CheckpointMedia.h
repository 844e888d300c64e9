// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Thumbnails.h"
#include "store/Library.h"

#include <memory>

namespace ardeno {

// The files of checkpoints as their records name them, only from the folder of a checkpoint's own media, and small
// pictures of the screenshots.
class CheckpointMedia final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::CheckpointMedia)

public:
    CheckpointMedia(const Library &library, QString thumbnailFolder);

    // The picture may be missing.
    std::optional<QString> screenshotFile(const Checkpoint &checkpoint) const;
    // Throws Failure for a recording that cannot be opened.
    QString recordingFile(const Checkpoint &checkpoint) const;
    // Made at the first call.
    Thumbnails &thumbnails();
    // What was deleted must not live on as a thumbnail.
    void forgetPictures(const QList<Checkpoint> &gone);

private:
    QSet<QString> screenshotFiles(const QList<Checkpoint> &of) const;

    const Library &m_library;
    QString m_thumbnailFolder;
    std::unique_ptr<Thumbnails> m_thumbnails = {};
};

} // namespace ardeno
