// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageImport.h"
#include "media/ThumbnailCache.h"
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/MediaRemoval.h"
#include "support/InWorker.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace ardeno {

QCoro::Task<void> AppStore::importScreenshot(QString file, QUuid checkpointID)
{
    if (!editable(checkpointID))
        co_return;
    clearMessages();
    QString path;
    std::optional<Failure> failure;
    try {
        path = mediaFolder(checkpointID) + '/' + MediaFile::importedImage();
        const auto copy = [&] { ImageImport::writePng(file, MediaFolders::arriving(path)); };
        co_await inWorker(copy);
    } catch (const Failure &thrown) {
        failure = thrown;
    }
    if (!failure) {
        adoptScreenshot(checkpointID, path);
        co_return;
    }
    QDir().rmdir(m_repository.root() + '/' + uuidText(checkpointID)); // Nothing happens when it holds anything.
    if (!editable(checkpointID)) // It was deleted meanwhile, and its folder with it.
        co_return;
    if (failure->domain() == ImageImport::notAnImageDomain)
        error.set(tr("This file could not be opened as an image. Choose a PNG, JPEG, HEIC or another supported "
                     "image."));
    else
        error.set(tr("Could not add the image: ") + failure->description());
}

// The new picture has been written; now it belongs to the checkpoint, or goes again.
void AppStore::adoptScreenshot(QUuid checkpointID, const QString &path)
{
    const QString arriving = MediaFolders::arriving(path);
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed) { // The checkpoint was deleted meanwhile; what it had by then went with it.
        QFile::remove(arriving);
        QDir().rmdir(QFileInfo(path).path());
        return;
    }
    const Checkpoint before = *changed;
    const auto replaced =
        before.screenshot ? MediaRemoval::allowed(m_repository.root(), checkpointID, *before.screenshot) : std::nullopt;
    MediaRemoval removal(replaced.value_or(QString()));
    std::optional<Failure> remains = removal.begin();
    changed->screenshot = path;
    const SettleMedia settle = [&] {
        if (const auto failure = MediaFolders::move(arriving, path))
            throw Failure(*failure);
    };
    if (!writeEdit(std::move(*changed), settle)) {
        putBack(removal);
        if (!QFile::remove(arriving))
            error.set(*error() + tr(" The new image remains in ") + arriving + '.');
        return;
    }
    notice.set(tr("Image added. A copy is saved with this checkpoint."));
    forgetPictures({before});
    if (!remains)
        remains = removal.finish();
    if (remains)
        notice.set(tr("Image added, but the previous image file could not be removed: ") + remains->description());
}

void AppStore::putBack(MediaRemoval &removal)
{
    if (const auto failure = removal.putBack())
        reportRemainingMedia(*error() + tr(" Some media remains in "), removal.aside(), *failure);
}

void AppStore::removeScreenshot(QUuid checkpointID)
{
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed || !changed->screenshot)
        return;
    clearMessages();
    const auto file = MediaRemoval::allowed(m_repository.root(), checkpointID, *changed->screenshot);
    if (!file) {
        error.set(tr("Could not remove a screenshot outside this checkpoint’s storage folder."));
        return;
    }
    const QString failed = tr("Could not remove the screenshot: ");
    MediaRemoval removal(*file);
    if (const auto failure = removal.begin()) {
        error.set(failed + failure->description());
        return;
    }
    const Checkpoint before = *changed;
    changed->screenshot.reset();
    if (!write(std::move(*changed), failed)) {
        putBack(removal);
        return;
    }
    forgetPictures({before});
    if (const auto failure = removal.finish())
        reportRemainingMedia(tr("Screenshot removed, but its file could not be deleted from "), removal.aside(),
                             *failure);
    else
        notice.set(tr("Screenshot removed. Your notes and workspace are saved."));
}

Thumbnails &AppStore::thumbnails()
{
    if (!m_thumbnails) {
        m_thumbnails = std::make_unique<Thumbnails>(m_thumbnailFolder);
        if (m_isLibraryRead)
            m_thumbnails->keepOnly(screenshotFiles(checkpoints()));
    }
    return *m_thumbnails;
}

// What was deleted must not live on as a thumbnail.
void AppStore::forgetPictures(const QList<Checkpoint> &gone)
{
    if (m_thumbnails)
        m_thumbnails->forget(screenshotFiles(gone));
    else
        ThumbnailCache(m_thumbnailFolder).remove(screenshotFiles(gone));
}

QSet<QString> AppStore::screenshotFiles(const QList<Checkpoint> &of) const
{
    QSet<QString> paths;
    for (const Checkpoint &checkpoint : of) {
        if (const auto file = screenshotFile(checkpoint))
            paths.insert(*file);
    }
    return paths;
}

} // namespace ardeno
