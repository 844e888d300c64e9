// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/recording/X11FrameBuffer.h"

#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "support/Failure.h"

namespace ardeno {

X11FrameBuffer::X11FrameBuffer(const X11Connection &connection, QSize size, bool hasSharedMemory)
    : m_connection(connection), m_size(size)
{
    if (!hasSharedMemory)
        return;
    auto shared = std::make_shared<X11SharedBytes>(size_t(size.width()) * size_t(size.height()) * 4);
    m_segment = xcb_generate_id(connection.xcb());
    if (shared->attach(connection, m_segment))
        m_shared = std::move(shared);
}

X11FrameBuffer::~X11FrameBuffer()
{
    if (m_shared)
        xcb_shm_detach(m_connection.xcb(), m_segment);
}

FetchedPixels X11FrameBuffer::fetch(xcb_drawable_t drawable, const QPoint &from)
{
    if (!m_shared)
        return fetchPixels(m_connection, drawable, QRect(from, m_size), PixelTransport::Socket);
    constexpr quint32 allPlanes = ~0U;
    xcb_connection_t *xcb = m_connection.xcb();
    const auto cookie = xcb_shm_get_image(xcb, drawable, qint16(from.x()), qint16(from.y()), quint16(m_size.width()),
                                          quint16(m_size.height()), allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment, 0);
    const X11Reply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(xcb, cookie, nullptr));
    requireAlive(m_connection);
    if (!reply)
        throw Failure("Capture", 2, "The screen could not be read.");
    const FetchedPixels pixels = {m_shared->bytes(), m_size, m_shared};
    toLittleEndian(m_connection, pixels);
    return pixels;
}

} // namespace ardeno
