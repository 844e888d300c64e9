// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Files.h"
#include "platform/linux/files/SlowMounts.h"

#include <QString>

#include <chrono>

namespace ardeno {

// What a path leads to. Its links are followed step by step, so that it is known on which disk each step is before it
// is made. For worker threads.
struct PathEntry {
    PathFacts facts = {};
    quint64 inode = 0;
    quint64 device = 0;

    // Waits for a disk that may never answer as long as this. The path is absolute.
    static PathEntry of(const QString &path, SlowMounts &mounts, std::chrono::milliseconds time);

    // Of this machine's disks, when nobody waits for the answer.
    static PathEntry of(const QString &path)
    {
        return of(path, SlowMounts::ofMachine(), std::chrono::milliseconds(300));
    }
};

} // namespace ardeno
