// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace ardeno {

// Files in the program's own folders, where after a restore or by somebody's malice anything may stand in their place.
// All functions throw Failure that names the file when that is no regular file; none of them waits for it.
namespace OwnFile {

// Whether the last part of the path may be a link. The folders above it may be in any case.
enum class Links { Refused, Followed };

// Opens the file with the flags of open(2); one that is created is readable for the user alone. Without a descriptor
// when there is none.
FileDescriptor open(const QString &path, int flags, Links links = Links::Refused);

// All bytes of the file, absent when there is none. Throws Failure (EFBIG) when they are more than that.
std::optional<QByteArray> read(const QString &path, qint64 largest, Links links = Links::Refused);

} // namespace OwnFile

} // namespace ardeno
