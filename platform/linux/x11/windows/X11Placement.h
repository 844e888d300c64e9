// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>

#include <optional>

namespace ardeno {

// The sizes that an application allows its window, of the client area in pixels.
struct X11SizeHints {
    double smallestWidth = 1;
    double smallestHeight = 1;
    double largestWidth = 65535;
    double largestHeight = 65535;
    double widthStep = 1;
    double heightStep = 1;

    // Of WM_NORMAL_HINTS, as they stand in the property.
    static X11SizeHints fromProperty(const QList<quint32> &values);

    bool operator==(const X11SizeHints &) const = default;
};

// What a window has around its client area: the decoration counts for the frame, a client-side shadow does not.
struct X11Surroundings {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;

    bool operator==(const X11Surroundings &) const = default;
};

// How one window gets to its frame: in the terms of the window manager, which speaks of the decorated window's corner
// and of the client area's size.
class X11Placement final {
public:
    X11Placement(const WindowMove &move, const X11Surroundings &decoration, const X11Surroundings &shadow,
                 const X11SizeHints &hints);

    // Asks the window for what it has around it and for its hints.
    static X11Placement of(const X11Connection &connection, const WindowMove &move);

    xcb_window_t window() const { return m_window; }

    qint32 x() const { return m_x; }

    qint32 y() const { return m_y; }

    quint32 width() const { return m_width; }

    quint32 height() const { return m_height; }

    // Whether the size, or all of the frame, is within a pixel, or within the steps of the application's sizes. What
    // was asked for counts even where the application says that it does not allow it.
    bool isSizeReached(const WindowRect &frame) const;
    bool isReached(const WindowRect &frame) const;

private:
    xcb_window_t m_window;
    WindowRect m_asked;
    WindowRect m_frame; // As it will be with a size that the application allows.
    qint32 m_x;
    qint32 m_y;
    quint32 m_width;
    quint32 m_height;
    double m_widthTolerance;
    double m_heightTolerance;
};

} // namespace ardeno
