// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ScreenshotEditing.h"

#include "media/ImageImport.h"
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
        outcome->fail(ScreenshotEditing::tr("The new image remains in ") + arriving + '.');
}

} // namespace

ScreenshotEditing::ScreenshotEditing(Operations &operations, Library &library, CheckpointMedia &media,
                                     RemovalUndo &removals)
    : m_operations(operations), m_library(library), m_media(media), m_removals(removals)
{
}

QCoro::Task<Outcome> ScreenshotEditing::importScreenshot(QString file, QUuid checkpointID)
{
    PictureImport import{.checkpointID = checkpointID, .number = ++m_lastNumber};
    return m_operations.carryOut(addPicture(std::move(file), std::move(import)));
}

void ScreenshotEditing::stopAddingPicture(QUuid checkpointID)
{
    for (const PictureImport &import : std::as_const(m_imports)) {
        if (import.checkpointID == checkpointID)
            import.isWanted->store(false);
    }
}

void ScreenshotEditing::showImports()
{
    QList<QUuid> ids;
    for (const PictureImport &import : std::as_const(m_imports))
        ids.append(import.checkpointID);
    addingPictures.set(ids);
}

QCoro::Task<Outcome> ScreenshotEditing::addPicture(QString file, PictureImport import)
{
    const QUuid checkpointID = import.checkpointID;
    Outcome outcome{.checkpointID = checkpointID, .subject = subjects::about("picture", checkpointID)};
    if (!m_library.editable(checkpointID))
        co_return outcome;
    m_imports.append(import);
    showImports();
    const auto ended = qScopeGuard([&] {
        m_imports.removeIf([&](const PictureImport &other) { return other.number == import.number; });
        showImports();
    });
    QString path;
    std::optional<Failure> failure;
    try {
        path = m_library.mediaFolder(checkpointID) + '/' + MediaFile::importedImage();
        const auto isWanted = [&] { return import.isWanted->load(); };
        const auto copy = [&] { ImageImport::writePng(file, MediaFolders::arriving(path), isWanted); };
        co_await inWorker(copy);
        if (!isWanted())
            throw ImageImport::ended();
        if (m_adoptedNumbers.value(checkpointID) > import.number) // One that was chosen later was quicker.
            discard(MediaFolders::arriving(path), &outcome);
        else
            adoptScreenshot(checkpointID, path, &outcome);
        if (outcome)
            m_adoptedNumbers.insert(checkpointID, import.number);
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
    QDir().rmdir(m_library.storageFolder() + '/' + uuidText(checkpointID)); // Nothing happens when it holds anything.
    co_return outcome;
}

void ScreenshotEditing::importFailed(QUuid checkpointID, const Failure &failure, Outcome *outcome) const
{
    if (!m_library.editable(checkpointID)) // It was deleted meanwhile, and its folder with it.
        return;
    if (failure.domain() == ImageImport::notAnImageDomain)
        outcome->fail(tr("This file could not be opened as an image. Choose a PNG, JPEG, HEIC or another supported "
                         "image."));
    else
        outcome->fail(tr("Could not add the image: ") + failure.description());
}

// The new picture has been written; now it belongs to the checkpoint, or goes again. Throws Failure when what is there
// does not answer; nothing has changed then.
void ScreenshotEditing::adoptScreenshot(QUuid checkpointID, const QString &path, Outcome *outcome)
{
    const QString arriving = MediaFolders::arriving(path);
    const std::optional<Checkpoint> before = m_library.editable(checkpointID);
    if (!before) { // The checkpoint was deleted meanwhile; what it had by then went with it.
        QFile::remove(arriving);
        QDir().rmdir(QFileInfo(path).path());
        return;
    }
    const auto replaced = before->screenshot
                              ? MediaRemoval::allowed(m_library.storageFolder(), checkpointID, *before->screenshot)
                              : std::nullopt;
    MediaRemoval removal(replaced.value_or(QString()));
    removal.begin(); // What cannot go aside now is tried again in the end.
    const auto show = [&](Checkpoint &checkpoint) {
        checkpoint.screenshot = path;
        return true;
    };
    const Library::SettleMedia settle = [&] {
        if (const auto failure = MediaFolders::move(arriving, path))
            throw Failure(*failure);
    };
    *outcome = m_library.edit(checkpointID, "picture", show, {}, settle);
    if (!*outcome) {
        RemovalUndo::putBack(removal, outcome);
        discard(arriving, outcome);
        return;
    }
    pictureAdopted(*before, removal, outcome);
}

void ScreenshotEditing::pictureAdopted(const Checkpoint &before, MediaRemoval &removal, Outcome *outcome)
{
    outcome->notice = tr("Image added. A copy is saved with this checkpoint.");
    m_media.forgetPictures({before});
    if (!before.screenshot)
        return; // What was removed before can still be brought back.
    if (const auto remains = removal.isAside() ? std::nullopt : removal.begin())
        outcome->notice =
            tr("Image added, but the previous image file could not be removed: ") + remains->description();
    m_removals.remember(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}});
}

Outcome ScreenshotEditing::removeScreenshot(QUuid checkpointID)
{
    const std::optional<Checkpoint> before = m_library.editable(checkpointID);
    if (!before || !before->screenshot)
        return {};
    Outcome outcome{.subject = subjects::about("picture", checkpointID)};
    const QString failed = tr("Could not remove the screenshot: ");
    std::optional<QString> file;
    try {
        file = MediaRemoval::allowed(m_library.storageFolder(), checkpointID, *before->screenshot);
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
    return m_operations.concluded(std::move(outcome));
}

Outcome ScreenshotEditing::clearScreenshot(const Checkpoint &before, MediaRemoval &removal)
{
    const auto clear = [](Checkpoint &checkpoint) {
        checkpoint.screenshot.reset();
        return true;
    };
    Outcome outcome = m_library.edit(before.id, "picture", clear, tr("Could not remove the screenshot: "));
    if (!outcome) {
        RemovalUndo::putBack(removal, &outcome);
        return outcome;
    }
    m_media.forgetPictures({before});
    m_removals.remember(WorkspaceRemoval{before.id, {RemovedPicture{*before.screenshot}}});
    outcome.notice = tr("Screenshot removed. Your notes and workspace are saved.");
    return outcome;
}

} // namespace ardeno
