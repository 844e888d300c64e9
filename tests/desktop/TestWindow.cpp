// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/desktop/TestWindow.h"

#include "tests/desktop/Desktop.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace ardeno::desktop_test {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

} // namespace

TestWindow::TestWindow(const QRect &geometry, Kind kind)
    : m_connection(xcb_connect(nullptr, nullptr)), m_geometry(geometry), m_kind(kind)
{
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_root = screen->root;
    m_window = xcb_generate_id(m_connection);
    const std::array<uint32_t, 2> values = {screen->white_pixel, kind == Kind::Popup ? 1U : 0U};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_root, static_cast<int16_t>(geometry.x()),
                      static_cast<int16_t>(geometry.y()), static_cast<uint16_t>(geometry.width()),
                      static_cast<uint16_t>(geometry.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values.data());
    xcb_flush(m_connection);
}

TestWindow::~TestWindow()
{
    // The next connection may get the same numbers: the window manager must have forgotten this window by then, or it
    // takes its properties from the next one.
    xcb_destroy_window(m_connection, m_window);
    xcb_flush(m_connection);
    eventually([&] { return !hasManager() || !windows(m_root, "_NET_CLIENT_LIST").contains(m_window); });
    xcb_disconnect(m_connection);
}

void TestWindow::setTitle(const QByteArray &bytes, const char *type, const char *property)
{
    change(property, atom(type), 8, bytes.constData(), static_cast<uint32_t>(bytes.size()));
}

void TestWindow::setClass(const QByteArray &instance, const QByteArray &windowClass)
{
    const QByteArray both = instance + '\0' + windowClass + '\0';
    change("WM_CLASS", XCB_ATOM_STRING, 8, both.constData(), static_cast<uint32_t>(both.size()));
}

void TestWindow::setText(const char *property, const QByteArray &bytes)
{
    setTitle(bytes, "UTF8_STRING", property);
}

void TestWindow::setCardinals(const char *property, const QList<quint32> &values)
{
    change(property, XCB_ATOM_CARDINAL, 32, values.constData(), static_cast<uint32_t>(values.size()));
}

void TestWindow::setAtoms(const char *property, const QList<const char *> &names)
{
    QList<quint32> values;
    for (const char *name : names)
        values.append(atom(name));
    change(property, XCB_ATOM_ATOM, 32, values.constData(), static_cast<uint32_t>(values.size()));
}

void TestWindow::askForPosition()
{
    constexpr uint32_t userPosition = 1;
    const std::array<uint32_t, 18> hints = {userPosition};
    change("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, 32, hints.data(), hints.size());
}

void TestWindow::show()
{
    xcb_map_window(m_connection, m_window);
    xcb_flush(m_connection);
    eventually([&] { return isVisible() && (m_kind == Kind::Popup || isListed()); });
}

void TestWindow::hide()
{
    xcb_unmap_window(m_connection, m_window);
    xcb_flush(m_connection);
    eventually([&] { return !isVisible(); });
}

xcb_atom_t TestWindow::atom(const char *name)
{
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr), std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void TestWindow::change(const char *property, xcb_atom_t type, uint8_t format, const void *data, uint32_t count)
{
    const xcb_atom_t name = atom(property);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, name, type, format, count, data);
    // A round trip, so that other connections see it from here on.
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

bool TestWindow::isVisible()
{
    const Reply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, m_window), nullptr),
        std::free);
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool TestWindow::isListed()
{
    // Without a window manager nobody keeps a list.
    return !hasManager() || windows(m_root, "_NET_CLIENT_LIST").contains(m_window);
}

bool TestWindow::hasManager()
{
    const QList<xcb_window_t> check = windows(m_root, "_NET_SUPPORTING_WM_CHECK");
    return !check.isEmpty() && windows(check.first(), "_NET_SUPPORTING_WM_CHECK") == check;
}

QList<xcb_window_t> TestWindow::windows(xcb_window_t window, const char *property)
{
    constexpr uint32_t longest = 4096;
    const auto cookie = xcb_get_property(m_connection, 0, window, atom(property), XCB_ATOM_WINDOW, 0, longest);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr), std::free);
    if (!reply)
        return {};
    const auto *values = static_cast<const xcb_window_t *>(xcb_get_property_value(reply.get()));
    const int count = xcb_get_property_value_length(reply.get()) / static_cast<int>(sizeof(xcb_window_t));
    return {values, values + count};
}

} // namespace ardeno::desktop_test
