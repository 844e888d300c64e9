// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndSignals.h"

#include <QSocketNotifier>

#include <atomic>
#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace ardeno {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What a signal handler may touch.
std::atomic<int> caughtSignal = 0;
std::atomic<bool> endsNext = false;
int wake = -1; // An eventfd.

void note(int number)
{
    caughtSignal = number;
    const eventfd_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wake, &one, sizeof one);
    for (const int other : endSignals) {
        if (endsNext)
            std::signal(other, SIG_DFL);
    }
}

} // namespace

struct EndSignals::Former {
    int number = 0;
    struct sigaction action = {};
};

EndSignals::EndSignals(Again again, std::function<void()> handler)
{
    wake = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto *notifier = new QSocketNotifier(wake, QSocketNotifier::Read, this);
    QObject::connect(notifier, &QSocketNotifier::activated, this, [handler = std::move(handler)] {
        eventfd_t count = 0;
        eventfd_read(wake, &count);
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
    ::close(wake);
}

int EndSignals::caught()
{
    return caughtSignal;
}

} // namespace ardeno
