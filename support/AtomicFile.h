// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>
#include <span>

namespace ardeno {

// Which file, and in which state: equal stamps mean that nobody has written to it in between.
struct FileStamp {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;
    qint64 modified = 0; // Nanoseconds since 1970, as is the next.
    qint64 changed = 0;

    // Throws Failure.
    static FileStamp ofDescriptor(int descriptor);
    // Absent when there is no such file, or it is a link to none. Throws Failure.
    static std::optional<FileStamp> ofFile(const QString &path);

    bool operator==(const FileStamp &) const = default;
};

// Files that are either as they were or complete, whatever happens on the way. All functions throw Failure of domain
// "POSIX" with the system's own words and leave nothing behind then.
namespace AtomicFile {

// A file that has been made. Where the system could not say that it is on disk, a power cut may still undo it.
struct Written {
    FileStamp stamp = {};
    bool isDurable = true;
};

// Replaces the file by the pieces, one after the other, readable for the user alone and on disk when the function
// returns. A link stays a link: the file that it names is replaced. The check is called when only the replacement is
// left to do, and ends the write by what it throws.
Written write(const QString &path, std::span<const QByteArrayView> pieces, const std::function<void()> &check = {});
Written write(const QString &path, QByteArrayView bytes);
// The same where nobody may have put a link: it is replaced itself, and what it names stays as it is.
Written replace(const QString &path, QByteArrayView bytes);

// Creates a file of pieces that are given one after the other to the function that fill gets; the same promises, also
// for what fill throws. Fails with EEXIST when something is there already.
Written writeNew(const QString &path, const std::function<void(const std::function<void(QByteArrayView)> &)> &fill);

// Copies a regular file; holes stay holes. Fails with EEXIST when something is there already.
Written copyToNew(const QString &source, const QString &target);

// Creates the folder and what is missing above it, for the user alone; one that exists stays as it is.
void createFolder(const QString &path);

// Removes what writers that were killed left in the folder, nothing else. Throws nothing: what stays is in nobody's
// way.
void removeLeftovers(const QString &folder);

} // namespace AtomicFile

} // namespace ardeno
