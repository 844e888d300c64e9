// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/CheckpointMedia.h"

#include "media/ThumbnailCache.h"
#include "store/MediaFolders.h"

namespace ardeno {

CheckpointMedia::CheckpointMedia(const Library &library, QString thumbnailFolder)
    : m_library(library), m_thumbnailFolder(std::move(thumbnailFolder))
{
}

std::optional<QString> CheckpointMedia::screenshotFile(const Checkpoint &checkpoint) const
{
    return checkpoint.screenshot
               ? MediaFolders::fileOf(m_library.storageFolder(), checkpoint.id, *checkpoint.screenshot)
               : std::nullopt;
}

QString CheckpointMedia::recordingFile(const Checkpoint &checkpoint) const
{
    const QString &root = m_library.storageFolder();
    const auto file = MediaFolders::fileOf(root, checkpoint.id, checkpoint.recording.value_or(QString()));
    if (!file)
        throw Failure("Media", 1, tr("It is not in this checkpoint’s storage folder."));
    if (!MediaFolders::isFolder(MediaFolders::own(root, checkpoint.id)) || !MediaFolders::isFile(*file))
        throw Failure("Media", 2, tr("There is no such file."));
    return *file;
}

Thumbnails &CheckpointMedia::thumbnails()
{
    if (!m_thumbnails) {
        m_thumbnails = std::make_unique<Thumbnails>(m_thumbnailFolder);
        if (m_library.isLibraryRead())
            m_thumbnails->keepOnly(screenshotFiles(m_library.checkpoints()));
    }
    return *m_thumbnails;
}

void CheckpointMedia::forgetPictures(const QList<Checkpoint> &gone)
{
    if (m_thumbnails)
        m_thumbnails->forget(screenshotFiles(gone));
    else
        ThumbnailCache(m_thumbnailFolder).remove(screenshotFiles(gone));
}

QSet<QString> CheckpointMedia::screenshotFiles(const QList<Checkpoint> &of) const
{
    QSet<QString> paths;
    for (const Checkpoint &checkpoint : of) {
        if (const auto file = screenshotFile(checkpoint))
            paths.insert(*file);
    }
    return paths;
}

} // namespace ardeno
