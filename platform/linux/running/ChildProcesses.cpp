// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/ChildProcesses.h"

#include <algorithm>
#include <utility>

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ardeno {

void ChildProcesses::add(pid_t process, const FailedStart &ifFails, std::function<void()> whenFailed)
{
    FileDescriptor descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    std::unique_ptr<QSocketNotifier> notifier;
    if (descriptor) {
        notifier = std::make_unique<QSocketNotifier>(descriptor.number(), QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [this, process] { collect(process); });
    }
    m_children.push_back(std::make_unique<Child>(
        Child{process, ifFails, std::move(whenFailed), std::move(descriptor), std::move(notifier)}));
}

bool ChildProcesses::isRunning(pid_t process) const
{
    return std::any_of(m_children.begin(), m_children.end(),
                       [&](const auto &child) { return child->process == process; });
}

QList<FailedStart> ChildProcesses::takeFailures()
{
    for (const auto &child : m_children)
        child->whenFailed = {};
    return std::exchange(m_failures, {});
}

void ChildProcesses::collect(pid_t process)
{
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [&](const auto &child) { return child->process == process; });
    int status = 0;
    if (found == m_children.end() || ::waitpid(process, &status, WNOHANG) == 0)
        return;
    if ((*found)->whenFailed && (!WIFEXITED(status) || WEXITSTATUS(status) != 0)) {
        m_failures.append((*found)->ifFails);
        (*found)->whenFailed();
    }
    // This function was called by the notifier, which therefore outlives it.
    (*found)->notifier->setEnabled(false);
    (*found)->notifier.release()->deleteLater();
    m_children.erase(found);
}

} // namespace ardeno
