// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Struts.h"

#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Property.h"

#include <algorithm>
#include <vector>

namespace ardeno {

namespace {

// The fields of _NET_WM_STRUT_PARTIAL; _NET_WM_STRUT has the first four.
enum : qsizetype { Left, Right, Top, Bottom, LeftStart, LeftEnd, RightStart, RightEnd, TopStart, TopEnd, BottomStart };

constexpr qsizetype partialLength = 12;
constexpr qsizetype fullLength = 4;

void appendStruts(const QList<quint32> &values, const WindowRect &screen, QList<X11Strut> &struts)
{
    if (values.size() < fullLength)
        return;
    // The ends are inclusive; a strut without ends runs along the whole edge.
    const auto start = [&](qsizetype field) { return values.size() < partialLength ? 0.0 : double(values[field]); };
    const auto length = [&](qsizetype field, double whole) {
        return values.size() < partialLength ? whole : double(values[field + 1]) - double(values[field]) + 1;
    };
    using Edge = X11Strut::Edge;
    const double left = values[Left];
    const double right = values[Right];
    const double top = values[Top];
    const double bottom = values[Bottom];
    if (left > 0)
        struts.append({Edge::Left, {0, start(LeftStart), left, length(LeftStart, screen.height)}});
    if (right > 0)
        struts.append(
            {Edge::Right, {screen.width - right, start(RightStart), right, length(RightStart, screen.height)}});
    if (top > 0)
        struts.append({Edge::Top, {start(TopStart), 0, length(TopStart, screen.width), top}});
    if (bottom > 0)
        struts.append(
            {Edge::Bottom, {start(BottomStart), screen.height - bottom, length(BottomStart, screen.width), bottom}});
}

// Whether a strip and a monitor have a part of the edge's direction in common.
bool runsAlong(const WindowRect &monitor, const X11Strut &strut)
{
    if (strut.edge == X11Strut::Edge::Left || strut.edge == X11Strut::Edge::Right)
        return strut.area.y < monitor.maxY() && strut.area.maxY() > monitor.y;
    return strut.area.x < monitor.maxX() && strut.area.maxX() > monitor.x;
}

struct Edges {
    double left;
    double top;
    double right;
    double bottom;
};

void take(const X11Strut &strut, const WindowRect &monitor, Edges &edges)
{
    // Where the strip's inner side lies; it must lie within the monitor.
    const auto across = [](double inner, double low, double high) { return inner > low && inner < high; };
    switch (strut.edge) {
    case X11Strut::Edge::Left:
        if (across(strut.area.maxX(), monitor.x, monitor.maxX()))
            edges.left = std::max(edges.left, strut.area.maxX());
        return;
    case X11Strut::Edge::Right:
        if (across(strut.area.x, monitor.x, monitor.maxX()))
            edges.right = std::min(edges.right, strut.area.x);
        return;
    case X11Strut::Edge::Top:
        if (across(strut.area.maxY(), monitor.y, monitor.maxY()))
            edges.top = std::max(edges.top, strut.area.maxY());
        return;
    case X11Strut::Edge::Bottom:
        if (across(strut.area.y, monitor.y, monitor.maxY()))
            edges.bottom = std::min(edges.bottom, strut.area.y);
        return;
    }
}

} // namespace

QList<X11Strut> readStruts(const X11Connection &connection, const WindowRect &screen)
{
    struct Asked {
        X11Property partial;
        X11Property full;
    };

    std::vector<Asked> asked;
    for (const xcb_window_t window : WindowTree::clients(connection))
        asked.push_back({{connection, window, X11Atom::NetWmStrutPartial}, {connection, window, X11Atom::NetWmStrut}});
    QList<X11Strut> struts;
    for (Asked &window : asked) {
        const QList<quint32> partial = window.partial.cardinals();
        const QList<quint32> full = window.full.cardinals();
        appendStruts(partial.size() >= partialLength ? partial : full.mid(0, fullLength), screen, struts);
    }
    return struts;
}

WindowRect usableFrame(const WindowRect &monitor, const QList<X11Strut> &struts)
{
    Edges edges{monitor.x, monitor.y, monitor.maxX(), monitor.maxY()};
    for (const X11Strut &strut : struts) {
        if (runsAlong(monitor, strut))
            take(strut, monitor, edges);
    }
    // Banners that leave nothing are a mistake of whoever set them.
    if (edges.left >= edges.right || edges.top >= edges.bottom)
        return monitor;
    return {edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top};
}

} // namespace ardeno
