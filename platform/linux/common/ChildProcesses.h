// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/FileDescriptor.h"

#include <QSocketNotifier>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

#include <sys/types.h>

namespace ardeno {

// The processes that were started, until they end: they are waited for, so that none stays behind as a zombie, and
// those that end with an error are remembered.
class ChildProcesses final {
public:
    // The name is what takeFailures() calls it. Whoever wants to know is told when it ends with an error.
    void add(pid_t process, const QString &name, std::function<void()> whenFailed);
    bool isRunning(pid_t process) const;
    // The names of those that have ended with an error since they were added or since the last call. How those that
    // still run will end is nobody's concern any more: their user may end them in any way.
    QStringList takeFailures();

private:
    struct Child {
        pid_t process;
        QString name;
        std::function<void()> whenFailed; // Empty once it counts as started.
        FileDescriptor descriptor;        // Readable once the process has ended.
        std::unique_ptr<QSocketNotifier> notifier;
    };

    void collect(pid_t process);

    std::vector<std::unique_ptr<Child>> m_children;
    QStringList m_failures;
};

} // namespace ardeno
