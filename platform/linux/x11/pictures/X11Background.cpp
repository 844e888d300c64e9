// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Background.h"

#include "platform/linux/x11/windows/X11Property.h"

#include <QSize>

#include <array>

#include <xcb/composite.h>
#include <xcb/xfixes.h>

namespace ardeno {

namespace {

// The pixmap that the program which set the wallpaper has left; none when it has gone since or is of no use.
xcb_pixmap_t wallpaper(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    X11Property current(connection, connection.root(), X11Atom::RootPixmap);
    X11Property older(connection, connection.root(), X11Atom::EsetrootPixmap);
    for (const auto pixmap : {current.cardinal(), older.cardinal()}) {
        if (!pixmap || *pixmap == XCB_NONE)
            continue;
        const X11Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, *pixmap), nullptr));
        if (geometry && geometry->depth == connection.screen().root_depth)
            return *pixmap;
    }
    return XCB_NONE;
}

// Now: what the connection knows of the screen is of the moment when it was made.
QSize sizeOf(const X11Connection &connection, xcb_drawable_t drawable)
{
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, drawable), nullptr));
    return geometry ? QSize(geometry->width, geometry->height) : QSize(0, 0);
}

} // namespace

X11Background::X11Background(const X11Connection &connection, const RenderFormats &formats, bool hasCompositor)
    : m_connection(connection)
{
    const xcb_pixmap_t pixmap = wallpaper(connection);
    if (pixmap != XCB_NONE)
        useWallpaper(formats, pixmap);
    else if (!hasCompositor)
        usePaintedWindow(formats);
}

void X11Background::useWallpaper(const RenderFormats &formats, xcb_pixmap_t pixmap)
{
    m_picture.emplace(m_connection, pixmap, formats.ofVisual(m_connection.screen().root_visual),
                      RenderPicture::Owns::Nothing);
    const QSize size = sizeOf(m_connection, pixmap);
    const QSize root = sizeOf(m_connection, m_connection.root());
    if (size.width() >= root.width() && size.height() >= root.height())
        return; // The server copies faster than it tiles.
    const quint32 tiled = XCB_RENDER_REPEAT_NORMAL;
    xcb_render_change_picture(m_connection.xcb(), m_picture->id(), XCB_RENDER_CP_REPEAT, &tiled);
}

// Only the server knows the root's own background, but it paints it into a window that asks for its parent's. The
// window lies below all others and lets every click through.
void X11Background::usePaintedWindow(const RenderFormats &formats)
{
    xcb_connection_t *xcb = m_connection.xcb();
    const xcb_screen_t &screen = m_connection.screen();
    const xcb_window_t window = xcb_generate_id(xcb);
    m_isWallpaper = false;
    const QSize size = sizeOf(m_connection, screen.root);
    const std::array<quint32, 2> values = {XCB_BACK_PIXMAP_PARENT_RELATIVE, 1};
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, screen.root, 0, 0, quint16(size.width()),
                      quint16(size.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, values.data());
    const xcb_xfixes_region_t nothing = xcb_generate_id(xcb);
    xcb_xfixes_create_region(xcb, nothing, 0, nullptr);
    xcb_xfixes_set_window_shape_region(xcb, window, XCB_SHAPE_SK_INPUT, 0, 0, nothing);
    xcb_xfixes_destroy_region(xcb, nothing);
    const quint32 below = XCB_STACK_MODE_BELOW;
    xcb_configure_window(xcb, window, XCB_CONFIG_WINDOW_STACK_MODE, &below);
    xcb_map_window(xcb, window);
    const xcb_pixmap_t pixmap = xcb_generate_id(xcb);
    xcb_composite_name_window_pixmap(xcb, window, pixmap);
    xcb_destroy_window(xcb, window); // The pixmap stays.
    m_picture.emplace(m_connection, pixmap, formats.ofVisual(screen.root_visual), RenderPicture::Owns::Pixmap);
}

void X11Background::draw(const RenderPicture &picture, const QRect &area, const QPoint &at) const
{
    if (!m_picture) {
        fillGrey(m_connection, picture, 0, QRect(at, area.size()));
        return;
    }
    xcb_render_composite(m_connection.xcb(), XCB_RENDER_PICT_OP_SRC, m_picture->id(), XCB_NONE, picture.id(),
                         qint16(area.x()), qint16(area.y()), 0, 0, qint16(at.x()), qint16(at.y()),
                         quint16(area.width()), quint16(area.height()));
}

} // namespace ardeno
