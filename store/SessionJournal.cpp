// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SessionJournal.h"

#include "media/VideoFile.h"
#include "model/CheckpointRepository.h"
#include "model/Json.h"
#include "support/AtomicFile.h"
#include "support/Failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ardeno {

namespace {

const QString fileName = "session.json";

// The file if it is there.
std::optional<QString> existing(const QString &path)
{
    return QFileInfo::exists(path) ? std::optional(path) : std::nullopt;
}

Checkpoint unknownCheckpoint(const QString &mediaFolder)
{
    Checkpoint checkpoint;
    checkpoint.title = "Recovered work session";
    checkpoint.createdAt = Date::fromDateTime(QFileInfo(mediaFolder + '/' + fileName).lastModified());
    checkpoint.captureNote = "Only the recording and the picture of this work session could be recovered.";
    return checkpoint;
}

Checkpoint read(const QString &mediaFolder)
{
    QFile file(mediaFolder + '/' + fileName);
    try {
        if (file.open(QIODevice::ReadOnly))
            return json::decode<Checkpoint>(file.readAll());
    } catch (const Failure &) {
        return unknownCheckpoint(mediaFolder);
    }
    return unknownCheckpoint(mediaFolder);
}

} // namespace

void SessionJournal::write(const QString &mediaFolder, const Checkpoint &checkpoint)
{
    AtomicFile::write(mediaFolder + '/' + fileName, json::encode(checkpoint));
}

void SessionJournal::remove(const QString &mediaFolder)
{
    QFile::remove(mediaFolder + '/' + fileName);
}

QList<Checkpoint> SessionJournal::pending(const QString &libraryRoot)
{
    QList<Checkpoint> found;
    for (const QString &name : QDir(libraryRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QUuid id(name);
        const QString folder = libraryRoot + '/' + name;
        if (id.isNull() || name != uuidText(id) || !QFileInfo::exists(folder + '/' + fileName))
            continue;
        Checkpoint checkpoint = read(folder);
        checkpoint.id = id;
        checkpoint.screenshot = existing(folder + '/' + MediaFile::screenshot);
        const QString video = folder + '/' + MediaFile::recording;
        checkpoint.recording = VideoFile::repair(video) ? std::optional(video) : std::nullopt;
        found.append(checkpoint);
    }
    return found;
}

} // namespace ardeno
