// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EncodedCheckpoints.h"
#include "model/LibraryFailure.h"
#include "model/WorkspaceRecords.h"
#include "support/AtomicFile.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// The library file as it was when it was last read or written; plain data, nothing normalised.
struct LibraryFile {
    FileStamp stamp = {};
    bool isLegacy = false;    // A bare list of checkpoints.
    bool hasDecision = false; // Some checkpoint has a decision to be merged, in the current format.
    QList<Project> projects = {};
    EncodedCheckpoints checkpoints = {};

    static constexpr qint64 largest = qint64{1} << 30; // Bytes.

    // Absent when there is no file. Throws Failure when it cannot be read or is of a newer version.
    static std::optional<LibraryFile> read(const QString &path);
    // Whether a file that could not be read begins like a bare list.
    static bool startsAsLegacy(const QString &path);
    // Replaces the file by this and sets the stamp. The check is called last before, and ends the write by what it
    // throws. False when the new file may not survive a power cut.
    bool write(const QString &path, const std::function<void()> &check);
};

} // namespace ardeno
