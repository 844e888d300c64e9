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
    explicit SharedBytes(size_t size) : m_size(size), m_descriptor(memfd_create("picture", MFD_CLOEXEC))
    {
        if (m_descriptor >= 0 && ftruncate(m_descriptor, off_t(size)) == 0)
            m_bytes = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, m_descriptor, 0);
    }

    SharedBytes(const SharedBytes &) = delete;
    SharedBytes &operator=(const SharedBytes &) = delete;

    ~SharedBytes()
    {
        if (m_bytes != MAP_FAILED)
            munmap(m_bytes, m_size);
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    // Gives the memory to the server under this name.
    bool attach(const X11Connection &connection, xcb_shm_seg_t segment) const
    {
        const int given = m_bytes == MAP_FAILED ? -1 : dup(m_descriptor); // The connection closes what it is given.
        if (given < 0)
            return false;
        xcb_connection_t *xcb = connection.xcb();
        const X11Reply<xcb_generic_error_t> error(
            xcb_request_check(xcb, xcb_shm_attach_fd_checked(xcb, segment, given, 0)));
        return !error && connection.isAlive();
    }

    char *bytes() const { return static_cast<char *>(m_bytes); }

private:
    size_t m_size;
    int m_descriptor;
    void *m_bytes = MAP_FAILED;
};

Failure refused(const X11Connection &connection)
{
    requireAlive(connection);
    return {"Capture", 2, "The screenshot could not be created."};
}

size_t byteCount(const QRect &area)
{
    return size_t(area.width()) * size_t(area.height()) * 4;
}

// Without bytes when the server cannot share memory with this process.
FetchedPixels fetchThroughMemory(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto shared = std::make_shared<SharedBytes>(byteCount(area));
    const xcb_shm_seg_t segment = xcb_generate_id(xcb);
    if (!shared->attach(connection, segment))
        return {};
    const auto cookie = xcb_shm_get_image(xcb, drawable, qint16(area.x()), qint16(area.y()), quint16(area.width()),
                                          quint16(area.height()), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0);
    xcb_shm_detach(xcb, segment);
    const X11Reply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(xcb, cookie, nullptr));
    if (!reply || reply->size != byteCount(area))
        throw refused(connection);
    return {shared->bytes(), area.size(), shared};
}

FetchedPixels fetchThroughSocket(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto cookie = xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, qint16(area.x()), qint16(area.y()),
                                      quint16(area.width()), quint16(area.height()), allPlanes);
    const std::shared_ptr<xcb_get_image_reply_t> reply(xcb_get_image_reply(xcb, cookie, nullptr), FreeWithLibc());
    if (!reply || size_t(xcb_get_image_data_length(reply.get())) < byteCount(area))
        throw refused(connection);
    return {reinterpret_cast<char *>(xcb_get_image_data(reply.get())), area.size(), reply};
}

void swapBytes(const FetchedPixels &pixels)
{
    for (qsizetype i = 0; i < qsizetype(pixels.size.width()) * pixels.size.height(); ++i)
        qToLittleEndian(qFromBigEndian<quint32>(pixels.bytes + i * 4), pixels.bytes + i * 4);
}

} // namespace

FetchedPixels fetchPixels(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                          PixelTransport transport)
{
    FetchedPixels pixels;
    if (transport == PixelTransport::SharedMemory)
        pixels = fetchThroughMemory(connection, drawable, area);
    if (!pixels.bytes)
        pixels = fetchThroughSocket(connection, drawable, area);
    if (xcb_get_setup(connection.xcb())->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST)
        swapBytes(pixels);
    return pixels;
}

} // namespace ardeno
