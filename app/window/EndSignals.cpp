// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/EndSignals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace ardeno {

namespace {

// The end of a pipe that a signal handler may write to; nothing else is safe there.
int wakeUp = -1;

void handle(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp, &byte, 1);
}

} // namespace

EndSignals::EndSignals(std::function<void()> end)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // The signals then end the process as they always do.
    m_readEnd = FileDescriptor(ends[0]);
    m_writeEnd = FileDescriptor(ends[1]);
    wakeUp = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [number = ends[0], end = std::move(end)] {
                         char byte = 0;
                         while (::read(number, &byte, 1) > 0) {
                         }
                         end(); // It may be refused; another signal asks again.
                     });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, handle);
}

} // namespace ardeno
