// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QString>

#include <chrono>

namespace ardeno {

// The library of one folder, held by one process at a time; given back at the end of this value or of the process.
// Programs that this one starts do not inherit it.
class LibraryLock final {
public:
    enum class Holder { Command, Application };

    // Waits for as long as that while another process holds the library; then, or when the folder cannot be written,
    // throws Failure, which names the process. Creates the folder.
    static LibraryLock forWriting(const QString &root, Holder holder, std::chrono::milliseconds patience);
    // The same for one who only reads: without a folder, or in one that cannot be written, there is nothing to hold.
    static LibraryLock forReading(const QString &root, std::chrono::milliseconds patience);

private:
    explicit LibraryLock(FileDescriptor file) : m_file(std::move(file)) {}

    FileDescriptor m_file;
};

} // namespace ardeno
