// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace ardeno {

// What titles of windows say about files and folders. Nothing here looks at the disk.
namespace WindowTitles {

// Whether the title begins with this file name as a whole, apart from marks of change and the application's name:
// "*notes.txt - Editor", not "my notes.txt - Editor".
bool namesFile(const QString &title, const QString &baseName, const QString &applicationName);

// The absolute paths that the title may stand for, when it tells a whole path or a name with its folder
// ("notes.txt (~/Texts) - Editor"): where the path ends cannot be told from the title alone.
QStringList paths(const QString &title, const QString &applicationName, const QString &home);

// Whether the title has the form of a file's name with an ending.
bool looksLikeFile(const QString &title);

// The folder's name in the title of a file browser's window.
QString folderName(const QString &title, const QString &applicationID, const QString &applicationName);

} // namespace WindowTitles

} // namespace ardeno
