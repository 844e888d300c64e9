// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11PixelFetch.h"

#include "platform/linux/x11/X11TopLevels.h"
#include "support/Failure.h"

#include <QtEndian>

#include <sys/mman.h>
#include <unistd.h>

#include <xcb/shm.h>

namespace ardeno {

namespace {

constexpr quint32 allPlanes = ~0U;

// Memory that this process and the X server see; gone with the last of both, however they end.
class SharedBytes final {
public:
    SharedBytes(const X11Connection &connection, size_t size) : m_connection(connection), m_size(size)
    {
        const int descriptor = memfd_create("picture", MFD_CLOEXEC);
        if (descriptor < 0)
            return;
        if (ftruncate(descriptor, off_t(size)) == 0)
            m_bytes = mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor, 0);
        if (m_bytes == MAP_FAILED) {
            close(descriptor);
            return;
        }
        xcb_connection_t *xcb = connection.xcb();
        m_segment = xcb_generate_id(xcb);
        // The connection closes the descriptor.
        const X11Reply<xcb_generic_error_t> error(
            xcb_request_check(xcb, xcb_shm_attach_fd_checked(xcb, m_segment, descriptor, 0)));
        m_isAttached = !error && connection.isAlive();
    }

    SharedBytes(const SharedBytes &) = delete;
    SharedBytes &operator=(const SharedBytes &) = delete;

    ~SharedBytes()
    {
        if (m_isAttached)
            xcb_shm_detach(m_connection.xcb(), m_segment);
        if (m_bytes != MAP_FAILED)
            munmap(m_bytes, m_size);
    }

    bool isAttached() const { return m_isAttached; }

    xcb_shm_seg_t segment() const { return m_segment; }

    const char *bytes() const { return static_cast<const char *>(m_bytes); }

private:
    const X11Connection &m_connection;
    size_t m_size;
    void *m_bytes = MAP_FAILED;
    xcb_shm_seg_t m_segment = XCB_NONE;
    bool m_isAttached = false;
};

Failure refused(const X11Connection &connection)
{
    requireAlive(connection);
    return {"Capture", 2, "The screenshot could not be created."};
}

QByteArray fetchThroughMemory(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                              const SharedBytes &shared)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto cookie =
        xcb_shm_get_image(xcb, drawable, qint16(area.x()), qint16(area.y()), quint16(area.width()),
                          quint16(area.height()), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, shared.segment(), 0);
    const X11Reply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(xcb, cookie, nullptr));
    const qsizetype size = qsizetype(area.width()) * area.height() * 4;
    if (!reply || reply->size != quint32(size))
        throw refused(connection);
    return {shared.bytes(), size};
}

QByteArray fetchThroughSocket(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto cookie = xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, qint16(area.x()), qint16(area.y()),
                                      quint16(area.width()), quint16(area.height()), allPlanes);
    const X11Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(xcb, cookie, nullptr));
    const qsizetype size = qsizetype(area.width()) * area.height() * 4;
    if (!reply || xcb_get_image_data_length(reply.get()) < size)
        throw refused(connection);
    return {reinterpret_cast<const char *>(xcb_get_image_data(reply.get())), size};
}

void swapBytes(QByteArray &pixels)
{
    auto *words = reinterpret_cast<quint32 *>(pixels.data());
    for (qsizetype i = 0; i < pixels.size() / 4; ++i)
        words[i] = qbswap(words[i]);
}

} // namespace

QByteArray fetchPixels(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                       PixelTransport transport)
{
    QByteArray pixels;
    if (transport == PixelTransport::SharedMemory) {
        const SharedBytes shared(connection, size_t(area.width()) * size_t(area.height()) * 4);
        if (shared.isAttached())
            pixels = fetchThroughMemory(connection, drawable, area, shared);
    }
    if (pixels.isEmpty())
        pixels = fetchThroughSocket(connection, drawable, area);
    if (xcb_get_setup(connection.xcb())->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST)
        swapBytes(pixels);
    return pixels;
}

} // namespace ardeno
