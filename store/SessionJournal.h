// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QString>
#include <QUuid>

namespace ardeno {

// The checkpoint of a work session as long as it is not in the library: "session.json" beside its media. Whatever ends
// the program, the next start finds it there.
namespace SessionJournal {

// Written as a whole or not at all; throws Failure.
void write(const QString &mediaFolder, const Checkpoint &checkpoint);
// A missing one is fine, and one that cannot be removed harms nobody: its checkpoint is in the library.
void remove(const QString &mediaFolder);

// What the session of this checkpoint that was cut short has left, with the media that are really there. Of one whose
// journal makes no sense only the media are known. Throws Failure when anything of it cannot be read.
Checkpoint read(const QString &libraryRoot, const QUuid &checkpointID);
// Whether there is one. A link, or anything else that is no file, is none. Throws Failure when that cannot be known.
bool isIn(const QString &mediaFolder);

} // namespace SessionJournal

} // namespace ardeno
