// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Connection.h"

#include <xcb/randr.h>
#include <xcb/res.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace ardeno {

namespace {

// In the order of X11Atom.
constexpr std::array<const char *, static_cast<size_t>(X11Atom::Count)> atomNames = {
    "COMPOUND_TEXT",
    "EDID",
    "ESETROOT_PMAP_ID",
    "_GTK_APPLICATION_ID",
    "_GTK_FRAME_EXTENTS",
    "_GTK_UNIQUE_BUS_NAME",
    "_GTK_WINDOW_OBJECT_PATH",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_WM_CM_S", // The number of the screen follows.
    "_NET_CURRENT_DESKTOP",
    "_NET_DESKTOP_NAMES",
    "_NET_FRAME_EXTENTS",
    "_NET_MOVERESIZE_WINDOW",
    "_NET_NUMBER_OF_DESKTOPS",
    "_NET_SHOWING_DESKTOP",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_ACTION_MOVE",
    "_NET_WM_ACTION_RESIZE",
    "_NET_WM_ALLOWED_ACTIONS",
    "_NET_WM_DESKTOP",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_PING",
    "_NET_WM_STATE",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_MAXIMIZED_HORZ",
    "_NET_WM_STATE_MAXIMIZED_VERT",
    "_NET_WM_STATE_SHADED",
    "_NET_WM_STATE_STICKY",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_XROOTPMAP_ID",
    "UTF8_STRING",
    "WM_CHANGE_STATE",
    "WM_PROTOCOLS",
    "WM_STATE",
};

static_assert(atomNames.back() != nullptr, "every atom needs its name");

const xcb_screen_t *screenNumbered(xcb_connection_t *connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}

// Whether an output bears the name that the X server of a Wayland session gives to its own.
bool hasXWaylandOutput(xcb_connection_t *connection, xcb_window_t root)
{
    const X11Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(
            connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
    if (!resources)
        return false;
    const xcb_randr_output_t *outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    const int count = xcb_randr_get_screen_resources_current_outputs_length(resources.get());
    return std::any_of(outputs, outputs + count, [&](xcb_randr_output_t output) {
        const X11Reply<xcb_randr_get_output_info_reply_t> info(xcb_randr_get_output_info_reply(
            connection, xcb_randr_get_output_info(connection, output, XCB_CURRENT_TIME), nullptr));
        if (!info)
            return false;
        const auto *name = reinterpret_cast<const char *>(xcb_randr_get_output_info_name(info.get()));
        const auto length = static_cast<size_t>(xcb_randr_get_output_info_name_length(info.get()));
        return std::string_view(name, length).starts_with("XWAYLAND");
    });
}

} // namespace

X11Connection::X11Connection(const QByteArray &displayName)
{
    if (displayName.isEmpty())
        throw notAvailable("There is no X display in this session (DISPLAY is not set).");
    int screenNumber = 0;
    m_connection.reset(xcb_connect(displayName.constData(), &screenNumber));
    if (isAlive())
        m_screen = screenNumbered(xcb(), screenNumber);
    if (!m_screen)
        throw notAvailable(u"The X display “%1” cannot be reached."_qs.arg(QString::fromLocal8Bit(displayName)));
    internAtoms(screenNumber);
    askExtensions();
}

bool X11Connection::isReachable(const QByteArray &displayName)
{
    if (displayName.isEmpty())
        return false;
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(displayName.constData(), nullptr));
    return xcb_connection_has_error(connection.get()) == 0;
}

void X11Connection::internAtoms(int screenNumber)
{
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies = {};
    for (size_t i = 0; i < atomNames.size(); ++i) {
        std::string name = atomNames[i];
        if (i == static_cast<size_t>(X11Atom::NetCompositorSelection))
            name += std::to_string(screenNumber);
        cookies[i] = xcb_intern_atom(xcb(), 0, static_cast<uint16_t>(name.size()), name.c_str());
    }
    for (size_t i = 0; i < cookies.size(); ++i) {
        const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(xcb(), cookies[i], nullptr));
        m_atoms[i] = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
}

void X11Connection::askExtensions()
{
    xcb_prefetch_extension_data(xcb(), &xcb_randr_id);
    xcb_prefetch_extension_data(xcb(), &xcb_res_id);
    const xcb_query_extension_reply_t *randr = xcb_get_extension_data(xcb(), &xcb_randr_id);
    if (randr && randr->present) {
        const X11Reply<xcb_randr_query_version_reply_t> version(
            xcb_randr_query_version_reply(xcb(), xcb_randr_query_version(xcb(), 1, 5), nullptr));
        m_hasMonitors = version && (version->major_version > 1 || version->minor_version >= 5);
    }
    const xcb_query_extension_reply_t *res = xcb_get_extension_data(xcb(), &xcb_res_id);
    if (res && res->present) {
        const X11Reply<xcb_res_query_version_reply_t> version(
            xcb_res_query_version_reply(xcb(), xcb_res_query_version(xcb(), 1, 2), nullptr));
        m_hasClientIDs = version && (version->server_major > 1 || version->server_minor >= 2);
    }
}

Capability X11Connection::availability() const
{
    return isAlive() ? Capability::available() : Capability::unavailable("The connection to the X display was lost.");
}

bool X11Connection::isXWayland() const
{
    constexpr std::string_view name = "XWAYLAND";
    const X11Reply<xcb_query_extension_reply_t> extension(
        xcb_query_extension_reply(xcb(), xcb_query_extension(xcb(), name.size(), name.data()), nullptr));
    return (extension && extension->present) || (m_hasMonitors && hasXWaylandOutput(xcb(), root()));
}

} // namespace ardeno
