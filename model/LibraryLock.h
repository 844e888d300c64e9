// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QString>

#include <chrono>
#include <optional>

namespace ardeno {

// The right to work with the library, held by one process at a time: the application while it runs, a command while it
// works. Load the library after the lock is taken. A second file of the same folder is the right to resume, which one
// process has at a time while another one has the library. It ends with the object or with the process, however that
// ends; programs that are started in between do not inherit it.
class LibraryLock final {
public:
    enum class Kind { Command, Application };
    // A reader needs no lock where nobody could write: without a folder, or in one that is read-only. Only for a writer
    // is the folder created.
    enum class Access { Read, Write };

    struct Holder {
        qint64 process = 0;
        QString name = {}; // Of the program's file.
        Kind kind = Kind::Command;
    };

    static constexpr const char *libraryFile = "lock";
    static constexpr const char *resumeFile = "resume-lock";

    // What the lock is for.
    struct Request {
        QString root; // The library's folder.
        Kind kind = Kind::Command;
        Access access = Access::Write;
        const char *file = libraryFile;
    };

    // Absent when another process holds it. Throws Failure when the lock cannot be used at all.
    static std::optional<LibraryLock> tryLock(const Request &request);

    // Blocks up to that long, then throws Failure that names the process in the way.
    static LibraryLock waitFor(const Request &request, std::chrono::milliseconds atMost);

    // To be called before every write: takes the lock again where its file was removed or replaced, and throws Failure
    // when another process has it by now. A reader's lock needs nothing.
    void ensure();

    // Who holds the lock now; absent when nobody does or the holder has not said yet.
    static std::optional<Holder> holder(const QString &root, const char *file = libraryFile);

    ~LibraryLock();
    LibraryLock(LibraryLock &&other) noexcept = default;
    LibraryLock &operator=(LibraryLock &&other) noexcept = default;

    // False for a reader that needs no lock.
    bool isHeld() const { return static_cast<bool>(m_file); }

private:
    LibraryLock(Request request, FileDescriptor file) : m_request(std::move(request)), m_file(std::move(file)) {}

    Request m_request;
    FileDescriptor m_file;
};

} // namespace ardeno
