// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageImport.h"
#include "media/ThumbnailCache.h"
#include "store/AppStore.h"
#include "store/MediaRemoval.h"
#include "support/InWorker.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace ardeno {

namespace {

QSet<QString> screenshots(const QList<Checkpoint> &checkpoints)
{
    QSet<QString> paths;
    for (const Checkpoint &checkpoint : checkpoints) {
        if (checkpoint.screenshot)
            paths.insert(*checkpoint.screenshot);
    }
    return paths;
}

} // namespace

QCoro::Task<void> AppStore::importScreenshot(QString file, QUuid checkpointID)
{
    if (!editable(checkpointID))
        co_return;
    clearMessages();
    QString path;
    std::optional<Failure> failure;
    try {
        path = m_repository.directory(checkpointID) + '/' + MediaFile::importedImage();
        const auto copy = [&] { ImageImport::writePng(file, path); };
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
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed) { // The checkpoint was deleted meanwhile; what it had by then went with it.
        QFile::remove(path);
        QDir().rmdir(QFileInfo(path).path());
        return;
    }
    const Checkpoint before = *changed;
    changed->screenshot = path;
    if (!writeEdit(std::move(*changed))) {
        if (!QFile::remove(path))
            error.set(*error() + tr(" The new image remains in ") + path + '.');
        return;
    }
    notice.set(tr("Image added. A copy is saved with this checkpoint."));
    forgetPictures({before});
    if (!before.screenshot || !MediaRemoval::isAllowed(*before.screenshot, m_repository.root(), checkpointID))
        return;
    try {
        MediaRemoval(*before.screenshot).finish();
    } catch (const Failure &failure) {
        notice.set(tr("Image added, but the previous image file could not be removed: ") + failure.description());
    }
}

void AppStore::removeScreenshot(QUuid checkpointID)
{
    std::optional<Checkpoint> changed = editable(checkpointID);
    if (!changed || !changed->screenshot)
        return;
    clearMessages();
    if (!MediaRemoval::isAllowed(*changed->screenshot, m_repository.root(), checkpointID)) {
        error.set(tr("Could not remove a screenshot outside this checkpoint’s storage folder."));
        return;
    }
    const Checkpoint before = *changed;
    const QString failed = tr("Could not remove the screenshot: ");
    try {
        MediaRemoval removal(*before.screenshot);
        changed->screenshot.reset();
        if (!write(std::move(*changed), failed)) {
            removal.putBack();
            return;
        }
        forgetPictures({before});
        removal.finish();
        notice.set(tr("Screenshot removed. Your notes and workspace are saved."));
    } catch (const Failure &failure) {
        // A file that could not be put back is named after the write that failed.
        error.set((error() ? *error() + ' ' : failed) + failure.description());
    }
}

Thumbnails &AppStore::thumbnails()
{
    if (!m_thumbnails) {
        m_thumbnails = std::make_unique<Thumbnails>(m_thumbnailFolder);
        if (m_isLibraryRead)
            m_thumbnails->keepOnly(screenshots(checkpoints()));
    }
    return *m_thumbnails;
}

// What was deleted must not live on as a thumbnail.
void AppStore::forgetPictures(const QList<Checkpoint> &gone)
{
    if (m_thumbnails)
        m_thumbnails->forget(screenshots(gone));
    else
        ThumbnailCache(m_thumbnailFolder).remove(screenshots(gone));
}

} // namespace ardeno
