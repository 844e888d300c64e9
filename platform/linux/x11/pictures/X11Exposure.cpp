// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11Exposure.h"

#include <vector>

namespace ardeno {

namespace {

// A window and where its content begins, relative to the outer top left corner of the top-level one.
struct Exposed {
    xcb_window_t id;
    QPoint origin;
};

// A width or height of 0 would reach to the end of the window.
void clear(const X11Connection &connection, const Exposed &window, const X11Region &region)
{
    const X11Region own = region.translated(-window.origin);
    for (const QRect &area : own.rectangles()) {
        if (!area.isEmpty())
            xcb_clear_area(connection.xcb(), 1, window.id, qint16(area.x()), qint16(area.y()), quint16(area.width()),
                           quint16(area.height()));
    }
}

// The windows one level below, of which something lies in the region.
std::vector<Exposed> inside(const X11Connection &connection, const std::vector<Exposed> &parents,
                            const X11Region &region)
{
    xcb_connection_t *xcb = connection.xcb();
    std::vector<xcb_query_tree_cookie_t> trees;
    for (const Exposed &parent : parents)
        trees.push_back(xcb_query_tree(xcb, parent.id));
    std::vector<Exposed> candidates;
    for (size_t i = 0; i < parents.size(); ++i) {
        const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(xcb, trees[i], nullptr));
        const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
        for (int child = 0; child < count; ++child)
            candidates.push_back({xcb_query_tree_children(tree.get())[child], parents[i].origin});
    }
    std::vector<xcb_get_geometry_cookie_t> geometries;
    for (const Exposed &candidate : candidates)
        geometries.push_back(xcb_get_geometry(xcb, candidate.id));
    std::vector<Exposed> found;
    for (size_t i = 0; i < candidates.size(); ++i) {
        const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(xcb, geometries[i], nullptr));
        if (!geometry)
            continue;
        const int border = geometry->border_width;
        const QPoint origin = candidates[i].origin + QPoint(geometry->x + border, geometry->y + border);
        if (!region.intersected(QRect(origin, QSize(geometry->width, geometry->height))).isEmpty())
            found.push_back({candidates[i].id, origin});
    }
    return found;
}

} // namespace

void exposeTree(const X11Connection &connection, xcb_window_t topLevel, int border, const X11Region &region)
{
    constexpr int deepest = 16;
    std::vector<Exposed> level = {{topLevel, QPoint(border, border)}};
    for (int depth = 0; depth < deepest && !level.empty(); ++depth) {
        for (const Exposed &window : level)
            clear(connection, window, region);
        level = inside(connection, level, region);
    }
}

} // namespace ardeno
