// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Failure.h"

#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace ardeno {

// Where the media of checkpoints lie, and how they change their places. Nothing here follows a link, neither that of a
// media folder nor of a file in it.
namespace MediaFolders {

// The folder of a checkpoint, "<root>/<UUID>".
QString own(const QString &root, const QUuid &id);
// The folder of a checkpoint that is not in the library yet, "<root>/.saving-<UUID>".
QString unsaved(const QString &root, const QUuid &id);
// The identifier in the name of such a folder; null for every other name.
QUuid idOfOwn(const QString &name);
QUuid idOfUnsaved(const QString &name);

// The name of a file until the library names it, and the one of a file that it is about to forget.
QString arriving(const QString &path);
QString leaving(const QString &path);
// The file's own path for such a name; absent for every other name.
std::optional<QString> settled(const QString &path);

// The file that a record means by this path: one directly in the checkpoint's folder, wherever the library stood when
// the path was written. Absent when the path leads anywhere else. Touches no disk.
std::optional<QString> fileOf(const QString &root, const QUuid &id, const QString &recorded);

// These throw Failure when the system does not say what stands there.
bool exists(const QString &path);
bool isFolder(const QString &path);
bool isFile(const QString &path);

// The names in a folder, hidden ones included; none where there is no folder. Throws Failure when it cannot be read.
QStringList entries(const QString &folder);

// The failure if any. What has content is never replaced.
std::optional<Failure> move(const QString &from, const QString &to);
std::optional<Failure> removeAll(const QString &path);

} // namespace MediaFolders

} // namespace ardeno
