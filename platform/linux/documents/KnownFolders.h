// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <chrono>

namespace ardeno {

// The folders that a user has to do with, by name.
namespace KnownFolders {

// How far a search goes.
struct Bounds {
    int folders = 4000;
    std::chrono::milliseconds time = std::chrono::milliseconds(40);
};

// The user's folders, bookmarks, mounted disks and those of recent documents, with the folders they are in.
QStringList places();

// The folders of each of these names among the places and these further paths, the folders they are in, and what the
// user's folders contain, near ones first.
QHash<QString, QStringList> named(const QSet<QString> &names, const QStringList &furtherPaths, const Bounds &bounds);

inline QHash<QString, QStringList> named(const QSet<QString> &names, const QStringList &furtherPaths)
{
    return named(names, furtherPaths, Bounds());
}

} // namespace KnownFolders

} // namespace ardeno
