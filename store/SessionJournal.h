// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QList>
#include <QSet>
#include <QString>

namespace ardeno {

// The checkpoint of a work session as long as it is not in the library: "session.json" beside its media. Whatever ends
// the program, the next start finds it there.
namespace SessionJournal {

// Written as a whole or not at all; throws Failure.
void write(const QString &mediaFolder, const Checkpoint &checkpoint);
// A missing one is fine, and one that cannot be removed harms nobody: its checkpoint is in the library.
void remove(const QString &mediaFolder);

// What sessions of these checkpoints that were cut short have left, with the media that are really there. Of a session
// whose journal cannot be read only the media are known.
QList<Checkpoint> pending(const QString &libraryRoot, const QSet<QUuid> &checkpointIDs);
// Whether there is one. A link, or anything else that is no file, is none.
bool isIn(const QString &mediaFolder);

} // namespace SessionJournal

} // namespace ardeno
