// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace ardeno {

// The codes of failures of domain "Library".
enum class LibraryFailure {
    Damaged = 1,      // The content could not be decoded.
    TooLarge = 2,     // Larger than is read at all.
    Newer = 3,        // Written by a later version of the program.
    DanglingLink = 4, // A link whose file is not there.
    InUse = 5,        // Another process holds the lock.
    Changed = 6,      // Another library stands there than the one that was read or written last.
};

} // namespace ardeno
