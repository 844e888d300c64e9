// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

namespace ardeno {

// Brings media and library together again after whatever cut a change short. Needs the library's lock.
namespace MediaRecovery {

// Media that this library names get their places back, others on their way in or out are removed; so is what writers
// left unfinished. Without a library, which may just be missing for the moment, no media are touched. Only folders and
// files with names that the program itself gives are touched, and no link is followed. What cannot be moved or removed
// stays for the next time. The checkpoints of the folders with a journal.
QSet<QUuid> resolve(const QString &root, const QList<Checkpoint> *library);

} // namespace MediaRecovery

} // namespace ardeno
