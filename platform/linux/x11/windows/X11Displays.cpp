// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Displays.h"

#include "platform/linux/x11/windows/MonitorIdentity.h"
#include "platform/linux/x11/windows/X11Struts.h"

#include <QByteArray>
#include <QList>

#include <xcb/randr.h>

#include <algorithm>
#include <optional>

namespace ardeno {

namespace {

// A monitor as the server lists it.
struct Monitor {
    WindowRect bounds = {};
    bool isPrimary = false;
    MonitorIdentity identity = {};
};

QByteArray atomName(const X11Connection &connection, xcb_atom_t atom)
{
    const X11Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection.xcb(), xcb_get_atom_name(connection.xcb(), atom), nullptr));
    return reply ? QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QByteArray();
}

QByteArray edidOf(const X11Connection &connection, xcb_randr_output_t output)
{
    constexpr quint32 longest = 8192; // In units of four bytes.
    const auto cookie = xcb_randr_get_output_property(connection.xcb(), output, connection.atom(X11Atom::Edid),
                                                      XCB_GET_PROPERTY_TYPE_ANY, 0, longest, 0, 0);
    const X11Reply<xcb_randr_get_output_property_reply_t> reply(
        xcb_randr_get_output_property_reply(connection.xcb(), cookie, nullptr));
    if (!reply || reply->format != 8)
        return {};
    return QByteArray(reinterpret_cast<const char *>(xcb_randr_get_output_property_data(reply.get())),
                      xcb_randr_get_output_property_data_length(reply.get()));
}

Monitor readMonitor(const X11Connection &connection, const xcb_randr_monitor_info_t &info)
{
    Monitor monitor{
        .bounds = {double(info.x), double(info.y), double(info.width), double(info.height)},
        .isPrimary = info.primary != 0,
        .identity = {.name = atomName(connection, info.name)},
    };
    if (xcb_randr_monitor_info_outputs_length(&info) > 0)
        monitor.identity.edid = edidOf(connection, *xcb_randr_monitor_info_outputs(&info));
    return monitor;
}

QList<Monitor> readMonitors(const X11Connection &connection)
{
    const X11Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        connection.xcb(), xcb_randr_get_monitors(connection.xcb(), connection.root(), 1), nullptr));
    QList<Monitor> monitors;
    if (!reply)
        return monitors;
    auto infos = xcb_randr_get_monitors_monitors_iterator(reply.get());
    for (; infos.rem > 0; xcb_randr_monitor_info_next(&infos))
        monitors.append(readMonitor(connection, *infos.data));
    return monitors;
}

QList<quint32> identifiers(const QList<Monitor> &monitors)
{
    QList<MonitorIdentity> identities;
    for (const Monitor &monitor : monitors)
        identities.append(monitor.identity);
    return MonitorIdentity::stableNumbers(identities);
}

// Where no monitors are known, the screen is the only one.
QList<Monitor> wholeScreen(const WindowRect &screen)
{
    return {Monitor{.bounds = screen, .isPrimary = true, .identity = {.name = "screen"}}};
}

std::optional<WindowRect> rootBounds(const X11Connection &connection)
{
    // The connection's own figures are those of the moment when it was made.
    const X11Reply<xcb_get_geometry_reply_t> root(
        xcb_get_geometry_reply(connection.xcb(), xcb_get_geometry(connection.xcb(), connection.root()), nullptr));
    if (!root)
        return std::nullopt;
    return WindowRect{0, 0, double(root->width), double(root->height)};
}

} // namespace

QList<Display> readDisplays(const X11Connection &connection)
{
    const auto screen = rootBounds(connection);
    if (!screen)
        return {};
    const QList<Monitor> monitors = connection.hasMonitors() ? readMonitors(connection) : wholeScreen(*screen);
    const QList<quint32> ids = identifiers(monitors);
    const QList<X11Strut> struts = readStruts(connection, *screen);

    const auto primary = std::find_if(monitors.begin(), monitors.end(), [](const Monitor &m) { return m.isPrimary; });
    const qsizetype main = primary == monitors.end() ? 0 : primary - monitors.begin();
    QList<Display> displays;
    for (const Monitor &monitor : monitors) {
        const qsizetype position = displays.size();
        displays.append(Display{
            .id = ids[position],
            .name = monitor.identity.displayedName(),
            .bounds = monitor.bounds,
            .usableFrame = usableFrame(monitor.bounds, struts),
            .isMain = position == main,
        });
    }
    return displays;
}

} // namespace ardeno
