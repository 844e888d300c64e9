// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11RedirectionHold.h"

#include "support/Worker.h"

#include <array>
#include <cerrno>

#include <poll.h>
#include <sys/eventfd.h>

namespace ardeno {

X11RedirectionHold::X11RedirectionHold(const QByteArray &displayName)
    : m_redirection(X11Connection(displayName)),
      m_wake(eventfd(0, EFD_CLOEXEC)),
      m_thread(startWorker([this] { follow(); }))
{
}

X11RedirectionHold::~X11RedirectionHold()
{
    eventfd_write(m_wake.number(), 1);
    m_thread.join();
}

bool X11RedirectionHold::isAlive()
{
    const std::scoped_lock lock(m_mutex);
    return m_redirection.connection().isAlive();
}

void X11RedirectionHold::follow()
{
    const int server = xcb_get_file_descriptor(m_redirection.connection().xcb());
    std::array<pollfd, 2> watched = {pollfd{server, POLLIN, 0}, pollfd{m_wake.number(), POLLIN, 0}};
    while (poll(watched.data(), watched.size(), -1) >= 0 || errno == EINTR) {
        if (watched[1].revents != 0)
            return;
        const std::scoped_lock lock(m_mutex);
        m_redirection.processEvents();
        if (!m_redirection.connection().isAlive())
            return;
    }
}

} // namespace ardeno
