// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>

#include <optional>

#include <xcb/xcb.h>

namespace ardeno::screen_test {

// A window of one colour, and how well it behaves.
struct Painting {
    enum class Drawing { Always, Once, Never, WhenAskedAgain };

    QByteArray windowClass = "painter";
    quint32 colour = 0xff00ff; // With alpha in the highest byte when it is a window with alpha; premultiplied.
    QRect geometry = {100, 100, 300, 200};
    bool hasBackground = true; // Of the same colour; without one the window begins with what is below it.
    Drawing drawing = Drawing::Always;
    bool isPopup = false;
    bool isRound = false; // Only a cross of it is there.
    bool hasAlpha = false;
    xcb_window_t leader = XCB_NONE; // It is a dialog of this window.
};

// The window on a connection of its own. Draws when step() finds that it must.
class PaintedWindow final {
public:
    explicit PaintedWindow(const Painting &painting);
    PaintedWindow(const PaintedWindow &) = delete;
    PaintedWindow &operator=(const PaintedWindow &) = delete;
    ~PaintedWindow();

    int descriptor() const { return xcb_get_file_descriptor(m_connection); }

    // Takes in events; whether the window is on the screen and has drawn if it ever will.
    bool step();
    void waitUntilShown();
    void draw();

private:
    void create();
    void cutCross();

    Painting m_painting;
    xcb_connection_t *m_connection;
    const xcb_screen_t *m_screen;
    xcb_window_t m_window;
    xcb_gcontext_t m_context = XCB_NONE;
    bool m_isMapped = false;
    bool m_isShown = false;
    bool m_hasDrawn = false;
};

} // namespace ardeno::screen_test
