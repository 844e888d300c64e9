// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ImageImport.h"
#include "media/ThumbnailCache.h"
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/MediaRemoval.h"
#include "store/Subjects.h"
#include "support/InWorker.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <utility>

namespace ardeno {

namespace {

// Nothing happens when it is not there.
void discard(const QString &arriving, Outcome *outcome)
{
    if (MediaFolders::removeAll(arriving))
        outcome->fail(AppStore::tr("The new image remains in ") + arriving + '.');
}

} // namespace

QCoro::Task<Outcome> AppStore::importScreenshot(QString file, QUuid checkpointID)
{
    PictureImport import{checkpointID};
    return carryOut(addPicture(std::move(file), std::move(import)));
}

void AppStore::stopAddingPicture(QUuid checkpointID)
{
    for (const PictureImport &import : std::as_const(m_imports)) {
        if (import.checkpointID == checkpointID)
            import.isWanted->store(false);
    }
}

void AppStore::showImports()
{
    QList<QUuid> ids;
    for (const PictureImport &import : std::as_const(m_imports))
        ids.append(import.checkpointID);
    addingPictures.set(ids);
}

QCoro::Task<Outcome> AppStore::addPicture(QString file, PictureImport import)
{
    const QUuid checkpointID = import.checkpointID;
    Outcome outcome{.checkpointID = checkpointID, .subject = subjects::about("picture", checkpointID)};
    if (!editable(checkpointID))
        co_return outcome;
    m_imports.append(import);
    showImports();
    const auto ended = qScopeGuard([&] {
        m_imports.removeIf([&](const PictureImport &other) { return other.isWanted == import.isWanted; });
        showImports();
    });
    QString path;
    std::optional<Failure> failure;
    try {
        path = mediaFolder(checkpointID) + '/' + MediaFile::importedImage();
        const auto isWanted = [&] { return import.isWanted->load(); };
        const auto copy = [&] { ImageImport::writePng(file, MediaFolders::arriving(path), isWanted); };
        co_await inWorker(copy);
        if (!isWanted())
            throw ImageImport::ended();
        adoptScreenshot(checkpointID, path, &outcome);
    } catch (...) {
        failure = Failure::current();
    }
    if (!failure)
        co_return outcome;
    if (import.isWanted->load())
        importFailed(checkpointID, *failure, &outcome);
    else
        outcome.notice = tr("Stopped. The image was not added.");
    if (!path.isEmpty())
        discard(MediaFolders::arriving(path), &outcome);
    QDir().rmdir(m_repository.root() + '/' + uuidText(checkpointID)); // Nothing happens when it holds anything.
    co_return outcome;
}

void AppStore::importFailed(QUuid checkpointID, const Failure &failure, Outcome *outcome) const
{
    if (!editable(checkpointID)) // It was deleted meanwhile, and its folder with it.
        return;
    if (failure.domain() == ImageImport::notAnImageDomain)
        outcome->fail(tr("This file could not be opened as an image. Choose a PNG, JPEG, HEIC or another supported "
                         "image."));
    else
        outcome->fail(tr("Could not add the image: ") + failure.description());
}

// The new picture has been written; now it belongs to the checkpoint, or goes again. Throws Failure when what is there
// does not answer; nothing has changed then.
void AppStore::adoptScreenshot(QUuid checkpointID, const QString &path, Outcome *outcome)
{
    const QString arriving = MediaFolders::arriving(path);
    const std::optional<Checkpoint> before = editable(checkpointID);
    if (!before) { // The checkpoint was deleted meanwhile; what it had by then went with it.
        QFile::remove(arriving);
        QDir().rmdir(QFileInfo(path).path());
        return;
    }
    const auto replaced = before->screenshot
                              ? MediaRemoval::allowed(m_repository.root(), checkpointID, *before->screenshot)
                              : std::nullopt;
    MediaRemoval removal(replaced.value_or(QString()));
    removal.begin(); // What cannot go aside now is tried again in the end.
    const auto show = [&](Checkpoint &checkpoint) {
        checkpoint.screenshot = path;
        return true;
    };
    const SettleMedia settle = [&] {
        if (const auto failure = MediaFolders::move(arriving, path))
            throw Failure(*failure);
    };
    *outcome = edit(checkpointID, "picture", show, {}, settle);
    if (!*outcome) {
        putBack(removal, outcome);
        discard(arriving, outcome);
        return;
    }
    pictureAdopted(*before, removal, outcome);
}

void AppStore::pictureAdopted(const Checkpoint &before, MediaRemoval &removal, Outcome *outcome)
{
    outcome->notice = tr("Image added. A copy is saved with this checkpoint.");
    forgetPictures({before});
    if (!before.screenshot)
        return; // What was removed before can still be brought back.
    if (const auto remains = removal.isAside() ? std::nullopt : removal.begin())
        outcome->notice =
            tr("Image added, but the previous image file could not be removed: ") + remains->description();
    remember(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}});
}

void AppStore::putBack(MediaRemoval &removal, Outcome *outcome)
{
    if (const auto failure = removal.putBack())
        outcome->error = outcome->error.value_or(QString()) + tr(" Some media remains in ") + removal.aside() + ": " +
                         failure->description();
}

Outcome AppStore::removeScreenshot(QUuid checkpointID)
{
    const std::optional<Checkpoint> before = editable(checkpointID);
    if (!before || !before->screenshot)
        return {};
    Outcome outcome{.subject = subjects::about("picture", checkpointID)};
    const QString failed = tr("Could not remove the screenshot: ");
    std::optional<QString> file;
    try {
        file = MediaRemoval::allowed(m_repository.root(), checkpointID, *before->screenshot);
        if (!file)
            outcome.fail(tr("Could not remove a screenshot outside this checkpoint’s storage folder."));
    } catch (const Failure &failure) {
        outcome.fail(failed + failure.description());
    }
    MediaRemoval removal(file.value_or(QString()));
    if (const auto failure = removal.begin())
        outcome.fail(failed + failure->description());
    if (!outcome.error)
        outcome = clearScreenshot(*before, removal);
    return concluded(std::move(outcome));
}

Outcome AppStore::clearScreenshot(const Checkpoint &before, MediaRemoval &removal)
{
    const auto clear = [](Checkpoint &checkpoint) {
        checkpoint.screenshot.reset();
        return true;
    };
    Outcome outcome = edit(before.id, "picture", clear, tr("Could not remove the screenshot: "));
    if (!outcome) {
        putBack(removal, &outcome);
        return outcome;
    }
    forgetPictures({before});
    remember(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}});
    outcome.notice = tr("Screenshot removed. Your notes and workspace are saved.");
    return outcome;
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
