// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SessionJournal.h"

#include "media/VideoFile.h"
#include "model/CheckpointRepository.h"
#include "store/MediaFolders.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"
#include "support/OwnFile.h"
#include "json/Json.h"

#include <QFile>
#include <QFileInfo>

namespace ardeno {

namespace {

const QString fileName = "session.json";

// The file if it is there.
std::optional<QString> existing(const QString &path)
{
    return MediaFolders::isFile(path) ? std::optional(path) : std::nullopt;
}

Checkpoint unknownCheckpoint(const QString &mediaFolder)
{
    Checkpoint checkpoint;
    checkpoint.title = "Recovered work session";
    checkpoint.createdAt = Date::fromDateTime(QFileInfo(mediaFolder + '/' + fileName).lastModified());
    checkpoint.captureNote = "Only the recording and the picture of this work session could be recovered.";
    return checkpoint;
}

Checkpoint recorded(const QString &mediaFolder)
{
    constexpr qint64 largest = 64 * 1024 * 1024;
    const std::optional<QByteArray> bytes = OwnFile::read(mediaFolder + '/' + fileName, largest);
    try {
        if (bytes)
            return json::decode<Checkpoint>(*bytes);
    } catch (const Failure &) {
        return unknownCheckpoint(mediaFolder);
    }
    return unknownCheckpoint(mediaFolder);
}

} // namespace

void SessionJournal::write(const QString &mediaFolder, const Checkpoint &checkpoint)
{
    AtomicFile::replace(mediaFolder + '/' + fileName, json::encode(checkpoint));
}

void SessionJournal::remove(const QString &mediaFolder)
{
    try {
        if (isIn(mediaFolder))
            QFile::remove(mediaFolder + '/' + fileName);
    } catch (const Failure &) {
        // It stays.
    }
}

bool SessionJournal::isIn(const QString &mediaFolder)
{
    return MediaFolders::isFolder(mediaFolder) && MediaFolders::isFile(mediaFolder + '/' + fileName);
}

Checkpoint SessionJournal::read(const QString &libraryRoot, const QUuid &checkpointID)
{
    const QString folder = MediaFolders::own(libraryRoot, checkpointID);
    Checkpoint checkpoint = recorded(folder);
    checkpoint.id = checkpointID;
    checkpoint.screenshot = existing(folder + '/' + MediaFile::screenshot);
    const QString video = folder + '/' + MediaFile::recording;
    checkpoint.recording = VideoFile::repair(video) ? std::optional(video) : std::nullopt;
    if (!checkpoint.recording && MediaFolders::isFile(video) && QFileInfo(video).size() == 0)
        QFile::remove(video); // It had only just begun; nobody could see or delete it.
    return checkpoint;
}

} // namespace ardeno
