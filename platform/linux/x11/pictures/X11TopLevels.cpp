// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11TopLevels.h"

#include "support/Failure.h"

#include <vector>

#include <xcb/xfixes.h>

namespace ardeno {

namespace {

struct Asked {
    xcb_window_t id;
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_geometry_cookie_t geometry;
};

std::vector<Asked> askForChildren(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(xcb, xcb_query_tree(xcb, connection.root()), nullptr));
    if (!tree)
        return {};
    std::vector<Asked> asked;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        asked.push_back({children[i], xcb_get_window_attributes(xcb, children[i]), xcb_get_geometry(xcb, children[i])});
    }
    return asked;
}

TopLevel topLevel(xcb_window_t id, const xcb_get_window_attributes_reply_t &attributes,
                  const xcb_get_geometry_reply_t &geometry)
{
    TopLevel window;
    window.id = id;
    window.border = geometry.border_width;
    window.outer = QRect(geometry.x, geometry.y, geometry.width + 2 * geometry.border_width,
                         geometry.height + 2 * geometry.border_width);
    window.depth = geometry.depth;
    window.visual = attributes.visual;
    window.isOverrideRedirect = attributes.override_redirect != 0;
    window.isViewable =
        attributes.map_state == XCB_MAP_STATE_VIEWABLE && attributes._class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
    return window;
}

} // namespace

QList<TopLevel> topLevels(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    QList<TopLevel> windows;
    for (const Asked &asked : askForChildren(connection)) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(xcb, asked.attributes, nullptr));
        const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(xcb, asked.geometry, nullptr));
        if (attributes && geometry)
            windows.append(topLevel(asked.id, *attributes, *geometry));
    }
    requireAlive(connection);
    return windows;
}

QList<X11Region> outlines(const X11Connection &connection, const QList<TopLevel> &windows)
{
    xcb_connection_t *xcb = connection.xcb();
    std::vector<xcb_xfixes_fetch_region_cookie_t> asked;
    for (const TopLevel &window : windows) {
        const xcb_xfixes_region_t region = xcb_generate_id(xcb);
        xcb_xfixes_create_region_from_window(xcb, region, window.id, XCB_SHAPE_SK_BOUNDING);
        asked.push_back(xcb_xfixes_fetch_region(xcb, region));
        xcb_xfixes_destroy_region(xcb, region);
    }
    QList<X11Region> regions;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const X11Reply<xcb_xfixes_fetch_region_reply_t> reply(
            xcb_xfixes_fetch_region_reply(xcb, asked[size_t(i)], nullptr));
        X11Region region;
        const int count = reply ? xcb_xfixes_fetch_region_rectangles_length(reply.get()) : 0;
        for (int r = 0; r < count; ++r) {
            const xcb_rectangle_t &box = xcb_xfixes_fetch_region_rectangles(reply.get())[r];
            region.add(QRect(box.x, box.y, box.width, box.height).translated(windows[i].border, windows[i].border));
        }
        regions.append(region.intersected(QRect(QPoint(0, 0), windows[i].outer.size())));
    }
    return regions;
}

void requireAlive(const X11Connection &connection)
{
    if (!connection.isAlive())
        throw Failure("X11", 1, "The connection to the display was lost.");
}

} // namespace ardeno
