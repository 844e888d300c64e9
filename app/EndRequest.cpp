// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"

#include <QSocketNotifier>

#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace ardeno {

namespace {

constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

int wake = -1; // An eventfd: of what a signal handler may do, writing is enough.

void wakeUp(int)
{
    const eventfd_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wake, &one, sizeof one);
}

} // namespace

EndRequest::EndRequest(QDBusConnection connection, std::function<void()> handler) : m_handler(std::move(handler))
{
    wake = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto *notifier = new QSocketNotifier(wake, QSocketNotifier::Read, this);
    QObject::connect(notifier, &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        eventfd_read(wake, &count);
        handle();
    });
    for (const int number : endSignals)
        std::signal(number, wakeUp);
    connection.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected", this,
                       SLOT(handle()));
}

EndRequest::~EndRequest()
{
    for (const int number : endSignals)
        std::signal(number, SIG_DFL);
    ::close(wake);
}

void EndRequest::handle()
{
    m_handler();
}

} // namespace ardeno
