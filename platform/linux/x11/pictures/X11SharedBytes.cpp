// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11SharedBytes.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace ardeno {

X11SharedBytes::X11SharedBytes(size_t size)
    : m_size(size), m_descriptor(memfd_create("picture", MFD_CLOEXEC)), m_bytes(MAP_FAILED)
{
    if (m_descriptor >= 0 && ftruncate(m_descriptor, off_t(size)) == 0)
        m_bytes = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, m_descriptor, 0);
}

X11SharedBytes::~X11SharedBytes()
{
    if (m_bytes != MAP_FAILED)
        munmap(m_bytes, m_size);
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool X11SharedBytes::attach(const X11Connection &connection, xcb_shm_seg_t segment) const
{
    // The connection closes what it is given.
    const int given = m_bytes == MAP_FAILED ? -1 : fcntl(m_descriptor, F_DUPFD_CLOEXEC, 0);
    if (given < 0)
        return false;
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_generic_error_t> error(
        xcb_request_check(xcb, xcb_shm_attach_fd_checked(xcb, segment, given, 0)));
    return !error && connection.isAlive();
}

} // namespace ardeno
