// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11screen/painter/PaintedWindow.h"

#include <array>
#include <cstdlib>
#include <memory>

#include <poll.h>

#include <xcb/shape.h>

namespace ardeno::screen_test {

namespace {

// The first visual with eight bits of alpha.
xcb_visualid_t visualWithAlpha(const xcb_screen_t &screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
        if (depth.data->depth == 32 && xcb_depth_visuals_length(depth.data) > 0)
            return xcb_depth_visuals(depth.data)->visual_id;
    }
    return XCB_NONE;
}

} // namespace

PaintedWindow::PaintedWindow(const Painting &painting)
    : m_painting(painting),
      m_connection(xcb_connect(nullptr, nullptr)),
      m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data),
      m_window(xcb_generate_id(m_connection))
{
    create();
    if (m_painting.isRound)
        cutCross();
    m_context = xcb_generate_id(m_connection);
    xcb_create_gc(m_connection, m_context, m_window, XCB_GC_FOREGROUND, &m_painting.colour);
    xcb_map_window(m_connection, m_window);
    xcb_flush(m_connection);
}

PaintedWindow::~PaintedWindow()
{
    xcb_disconnect(m_connection);
}

void PaintedWindow::create()
{
    const QRect &place = m_painting.geometry;
    const xcb_visualid_t visual = m_painting.hasAlpha ? visualWithAlpha(*m_screen) : m_screen->root_visual;
    const xcb_colormap_t colours = xcb_generate_id(m_connection);
    xcb_create_colormap(m_connection, XCB_COLORMAP_ALLOC_NONE, colours, m_screen->root, visual);
    const std::array<quint32, 5> values = {m_painting.colour, 0, m_painting.isPopup ? 1U : 0U,
                                           XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY, colours};
    const quint32 background = m_painting.hasBackground ? XCB_CW_BACK_PIXEL : XCB_CW_BACK_PIXMAP;
    std::array<quint32, 5> used = values;
    if (!m_painting.hasBackground)
        used[0] = XCB_BACK_PIXMAP_NONE;
    xcb_create_window(
        m_connection, m_painting.hasAlpha ? 32 : m_screen->root_depth, m_window, m_screen->root, qint16(place.x()),
        qint16(place.y()), quint16(place.width()), quint16(place.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
        background | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, used.data());
    const QByteArray names = m_painting.windowClass + '\0' + m_painting.windowClass + '\0';
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        quint32(names.size()), names.constData());
    if (m_painting.leader != XCB_NONE)
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
                            32, 1, &m_painting.leader);
    // The window manager shall put it where it asks to be, without asking the user.
    constexpr quint32 userPosition = 1;
    std::array<quint32, 18> hints = {userPosition};
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS,
                        32, quint32(hints.size()), hints.data());
}

void PaintedWindow::cutCross()
{
    const auto width = quint16(m_painting.geometry.width());
    const auto height = quint16(m_painting.geometry.height());
    const std::array<xcb_rectangle_t, 2> cross = {xcb_rectangle_t{qint16(width / 3), 0, quint16(width / 3), height},
                                                  xcb_rectangle_t{0, qint16(height / 3), width, quint16(height / 3)}};
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, m_window, 0,
                         0, cross.size(), cross.data());
}

bool PaintedWindow::step()
{
    while (auto *event = xcb_poll_for_event(m_connection)) {
        const std::unique_ptr<xcb_generic_event_t, void (*)(void *)> owned(event, std::free);
        const quint8 type = event->response_type & 0x7f;
        m_isMapped = m_isMapped || type == XCB_MAP_NOTIFY;
        const bool draws = m_painting.drawing == Painting::Drawing::Always ||
                           (m_painting.drawing == Painting::Drawing::Once && !m_hasDrawn) ||
                           (m_painting.drawing == Painting::Drawing::WhenAskedAgain && m_isShown);
        if (type == XCB_EXPOSE && draws)
            draw();
    }
    const bool isBlank =
        m_painting.drawing == Painting::Drawing::Never || m_painting.drawing == Painting::Drawing::WhenAskedAgain;
    return m_isMapped && (m_hasDrawn || isBlank);
}

void PaintedWindow::draw()
{
    const xcb_rectangle_t all = {0, 0, quint16(m_painting.geometry.width()), quint16(m_painting.geometry.height())};
    xcb_poly_fill_rectangle(m_connection, m_window, m_context, 1, &all);
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    m_hasDrawn = true;
}

void PaintedWindow::waitUntilShown()
{
    while (!step()) {
        pollfd server = {descriptor(), POLLIN, 0};
        poll(&server, 1, -1);
    }
    // What the server asks for because the window has been shown has come by now.
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    step();
    m_isShown = true;
}

} // namespace ardeno::screen_test
