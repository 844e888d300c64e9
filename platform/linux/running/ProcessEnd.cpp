// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/running/ProcessEnd.h"

#include "support/FileDescriptor.h"

#include <cerrno>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace ardeno {

bool ProcessEnd::waitFor(qint64 process, std::chrono::milliseconds patience)
{
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0)));
    if (handle.number() < 0)
        return errno == ESRCH; // It has gone already.
    pollfd ending{.fd = handle.number(), .events = POLLIN, .revents = 0};
    const int changes = ::poll(&ending, 1, static_cast<int>(patience.count()));
    return changes == 1;
}

} // namespace ardeno
