// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndSignals.h"

#include "support/Failure.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace ardeno {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What a signal handler may touch.
std::atomic<int> caughtSignal = 0;
std::atomic<bool> endsNext = false;
int wakeUp[2] = {-1, -1}; // A pipe, from its end to read to its end to write.

void note(int number)
{
    caughtSignal = number;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], "", 1);
    for (const int other : endSignals) {
        if (endsNext)
            std::signal(other, SIG_DFL);
    }
}

void openPipe()
{
    if (::pipe(wakeUp) != 0)
        throw Failure::system(errno);
    for (const int end : wakeUp) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
}

void emptyPipe()
{
    char bytes[16];
    while (::read(wakeUp[0], bytes, sizeof bytes) == sizeof bytes) {
    }
}

} // namespace

struct EndSignals::Former {
    int number = 0;
    struct sigaction action = {};
};

EndSignals::EndSignals(Again again, std::function<void()> handler)
{
    openPipe();
    auto *notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    QObject::connect(notifier, &QSocketNotifier::activated, this, [handler = std::move(handler)] {
        emptyPipe();
        if (handler)
            handler();
    });
    endsNext = again == Again::EndAtOnce;
    for (const int number : endSignals) {
        Former former{.number = number};
        ::sigaction(number, nullptr, &former.action);
        if (former.action.sa_handler == SIG_IGN)
            continue;
        std::signal(number, note);
        m_former.push_back(former);
    }
}

EndSignals::~EndSignals()
{
    for (const Former &former : m_former)
        ::sigaction(former.number, &former.action, nullptr);
    for (const int end : wakeUp)
        ::close(end);
}

int EndSignals::caught()
{
    return caughtSignal;
}

} // namespace ardeno
