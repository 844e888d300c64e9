// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ardeno {

// Paths as texts. A path that is not UTF-8 has none: it could not be stored, and a changed one would be another file.
namespace PathText {

// Of an absolute path; without ".", ".." and needless slashes.
std::optional<QString> fromBytes(const QByteArray &path);

// Of a file's address ("file:///a%20b", also with the name of this machine); absent for others and for broken ones.
std::optional<QString> fromAddress(const QByteArray &address);

// What a disk does not tell in time is neither.
bool isFile(const QString &path);
bool isFolder(const QString &path);

// The part behind the last slash; "/" for the root.
QString baseName(const QString &path);

} // namespace PathText

} // namespace ardeno
