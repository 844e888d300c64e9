// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ardeno {

// The codes of failures of domain "Library".
enum class LibraryFailure {
    Damaged = 1,      // The content could not be decoded.
    TooLarge = 2,     // Larger than is read at all.
    NotAFile = 3,     // A folder, a pipe or a device stands in its place.
    Newer = 4,        // Written by a later version of the program.
    DanglingLink = 5, // A link whose file is not there.
    InUse = 6,        // Another process holds the lock.
};

} // namespace ardeno
