// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Launcher.h"
#include "support/FileDescriptor.h"

#include <QList>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>

#include <sys/types.h>

namespace ardeno {

// The processes that were started, until they end: they are waited for, so that none stays behind as a zombie, and
// those that end with an error are remembered.
class ChildProcesses final {
public:
    // Whoever wants to know is told when it ends with an error; takeFailures() then has what it was started for.
    void add(pid_t process, const FailedStart &ifFails, std::function<void()> whenFailed);
    bool isRunning(pid_t process) const;
    // Those that have ended with an error since they were added or since the last call. How those that still run will
    // end is not watched: their user may end them in any way.
    QList<FailedStart> takeFailures();

private:
    struct Child {
        pid_t process;
        FailedStart ifFails;
        std::function<void()> whenFailed; // Empty once it counts as started.
        FileDescriptor descriptor;        // Readable once the process has ended.
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void collect(pid_t process);

    std::vector<std::unique_ptr<Child>> m_children;
    QList<FailedStart> m_failures;
};

} // namespace ardeno
