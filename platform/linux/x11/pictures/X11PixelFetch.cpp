// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11PixelFetch.h"

#include "platform/linux/x11/pictures/X11SharedBytes.h"
#include "platform/linux/x11/pictures/X11TopLevels.h"
#include "support/Failure.h"

#include <QtEndian>

#include <algorithm>

#include <xcb/shm.h>

namespace ardeno {

namespace {

constexpr quint32 allPlanes = ~0U;

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
    const auto shared = std::make_shared<X11SharedBytes>(byteCount(area));
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

} // namespace

FetchedPixels fetchPixels(const X11Connection &connection, xcb_drawable_t drawable, const QRect &area,
                          PixelTransport transport)
{
    FetchedPixels pixels;
    if (transport == PixelTransport::SharedMemory)
        pixels = fetchThroughMemory(connection, drawable, area);
    if (!pixels.bytes)
        pixels = fetchThroughSocket(connection, drawable, area);
    toLittleEndian(connection, pixels);
    return pixels;
}

bool hasUsualPixels(const X11Connection &connection)
{
    const xcb_setup_t &setup = *xcb_get_setup(connection.xcb());
    const xcb_screen_t &screen = connection.screen();
    const xcb_format_t *formats = xcb_setup_pixmap_formats(&setup);
    const auto *end = formats + xcb_setup_pixmap_formats_length(&setup);
    const bool isWide = std::any_of(formats, end, [&](const xcb_format_t &format) {
        return format.depth == screen.root_depth && format.bits_per_pixel == 32;
    });
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); isWide && depth.rem > 0; xcb_depth_next(&depth)) {
        const xcb_visualtype_t *visuals = xcb_depth_visuals(depth.data);
        for (int i = 0; i < xcb_depth_visuals_length(depth.data); ++i) {
            if (visuals[i].visual_id == screen.root_visual)
                return visuals[i].red_mask == 0xff0000 && visuals[i].green_mask == 0xff00 &&
                       visuals[i].blue_mask == 0xff;
        }
    }
    return false;
}

void toLittleEndian(const X11Connection &connection, const FetchedPixels &pixels)
{
    if (xcb_get_setup(connection.xcb())->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST)
        return;
    for (qsizetype i = 0; i < qsizetype(pixels.size.width()) * pixels.size.height(); ++i)
        qToLittleEndian(qFromBigEndian<quint32>(pixels.bytes + i * 4), pixels.bytes + i * 4);
}

} // namespace ardeno
