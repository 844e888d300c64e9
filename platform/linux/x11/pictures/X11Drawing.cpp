// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Drawing.h"

#include "platform/linux/x11/pictures/X11TopLevels.h"

#include <new>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

std::vector<xcb_rectangle_t> serverRectangles(const X11Region &region)
{
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(size_t(region.rectangles().size()));
    for (const QRect &r : region.rectangles())
        rectangles.push_back({qint16(r.x()), qint16(r.y()), quint16(r.width()), quint16(r.height())});
    return rectangles;
}

bool isPremultiplied32(const xcb_render_pictforminfo_t &format)
{
    const xcb_render_directformat_t &d = format.direct;
    return format.type == XCB_RENDER_PICT_TYPE_DIRECT && format.depth == 32 && d.alpha_mask == 255 &&
           d.alpha_shift == 24 && d.red_mask == 255 && d.red_shift == 16 && d.green_mask == 255 && d.green_shift == 8 &&
           d.blue_mask == 255 && d.blue_shift == 0;
}

} // namespace

RenderFormats::RenderFormats(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_render_query_pict_formats_reply_t> reply(
        xcb_render_query_pict_formats_reply(xcb, xcb_render_query_pict_formats(xcb), nullptr));
    if (!reply)
        return;
    const xcb_render_pictforminfo_t *formats = xcb_render_query_pict_formats_formats(reply.get());
    for (int i = 0; i < xcb_render_query_pict_formats_formats_length(reply.get()); ++i) {
        if (isPremultiplied32(formats[i]))
            m_withAlpha = formats[i].id;
    }
    for (auto screen = xcb_render_query_pict_formats_screens_iterator(reply.get()); screen.rem > 0;
         xcb_render_pictscreen_next(&screen)) {
        for (auto depth = xcb_render_pictscreen_depths_iterator(screen.data); depth.rem > 0;
             xcb_render_pictdepth_next(&depth)) {
            const xcb_render_pictvisual_t *visuals = xcb_render_pictdepth_visuals(depth.data);
            for (int i = 0; i < xcb_render_pictdepth_visuals_length(depth.data); ++i)
                m_ofVisual.insert(visuals[i].visual, visuals[i].format);
        }
    }
}

RenderPicture::RenderPicture(const X11Connection &connection, xcb_drawable_t drawable, xcb_render_pictformat_t format,
                             Owns owns)
    : m_connection(&connection),
      m_drawable(drawable),
      m_picture(xcb_generate_id(connection.xcb())),
      m_ownsPixmap(owns == Owns::Pixmap)
{
    const quint32 withChildren = XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS;
    xcb_render_create_picture(connection.xcb(), m_picture, drawable, format, XCB_RENDER_CP_SUBWINDOW_MODE,
                              &withChildren);
}

RenderPicture::RenderPicture(const X11Connection &connection, const RenderFormats &formats, QSize size)
    : m_connection(&connection),
      m_drawable(xcb_generate_id(connection.xcb())),
      m_picture(xcb_generate_id(connection.xcb())),
      m_ownsPixmap(true)
{
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_generic_error_t> error(
        xcb_request_check(xcb, xcb_create_pixmap_checked(xcb, 32, m_drawable, connection.root(), quint16(size.width()),
                                                         quint16(size.height()))));
    requireAlive(connection);
    if (error) {
        m_picture = XCB_NONE;
        m_ownsPixmap = false;
        throw std::bad_alloc();
    }
    xcb_render_create_picture(xcb, m_picture, m_drawable, formats.withAlpha(), 0, nullptr);
}

RenderPicture::RenderPicture(RenderPicture &&other) noexcept
{
    *this = std::move(other);
}

RenderPicture &RenderPicture::operator=(RenderPicture &&other) noexcept
{
    std::swap(m_connection, other.m_connection);
    std::swap(m_drawable, other.m_drawable);
    std::swap(m_picture, other.m_picture);
    std::swap(m_ownsPixmap, other.m_ownsPixmap);
    return *this;
}

RenderPicture::~RenderPicture()
{
    if (m_picture != XCB_NONE)
        xcb_render_free_picture(m_connection->xcb(), m_picture);
    if (m_ownsPixmap)
        xcb_free_pixmap(m_connection->xcb(), m_drawable);
}

void clip(const X11Connection &connection, const RenderPicture &picture, const X11Region &region)
{
    const std::vector<xcb_rectangle_t> rectangles = serverRectangles(region);
    xcb_render_set_picture_clip_rectangles(connection.xcb(), picture.id(), 0, 0, quint32(rectangles.size()),
                                           rectangles.data());
}

void fillGrey(const X11Connection &connection, const RenderPicture &picture, quint8 level, const X11Region &region)
{
    const std::vector<xcb_rectangle_t> rectangles = serverRectangles(region);
    const auto wide = quint16(level * 257);
    const xcb_render_color_t colour = {wide, wide, wide, 0xffff};
    xcb_render_fill_rectangles(connection.xcb(), XCB_RENDER_PICT_OP_SRC, picture.id(), colour,
                               quint32(rectangles.size()), rectangles.data());
}

} // namespace ardeno
