// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/pictures/X11Extensions.h"
#include "platform/linux/x11/windows/X11Connection.h"

#include <QPoint>
#include <QRect>

#include <utility>

#include <xcb/damage.h>

namespace ardeno {

// What has happened on the screen since the last frame of a recording.
class X11ScreenChanges final {
public:
    // On a connection whose events nobody else reads.
    X11ScreenChanges(const X11Connection &connection, const X11Extensions &extensions);

    // Takes in what the server has reported until now, without waiting.
    void readEvents();
    // Asks the server where the pointer is. Only on this area it counts.
    void readPointer(const QRect &area);

    // Something has been drawn, or the pointer moved or changed.
    bool isVisible() const { return m_hasDrawing || m_hasOtherPointer; }

    // Whether windows have come or gone, or the window manager has changed something; asking forgets it.
    bool takeWindows() { return std::exchange(m_hasOtherWindows, false); }

    // Whether the displays or the wallpaper may have changed; asking forgets it.
    bool takeDisplays() { return std::exchange(m_hasOtherDisplays, false); }

    bool takeWallpaper() { return std::exchange(m_hasOtherWallpaper, false); }

    // A frame is about to be read on this connection, which may be another one: what is drawn from now on is new.
    void beginFrame(const X11Connection &through);

private:
    void handle(const xcb_generic_event_t &event);
    bool isOfDisplays(quint8 type) const;
    void handleProperty(const xcb_property_notify_event_t &event);

    const X11Connection &m_connection;
    X11Extensions m_extensions;
    quint8 m_firstScreenEvent = 0;
    quint8 m_firstFixesEvent = 0;
    xcb_damage_damage_t m_damage = XCB_NONE;
    QPoint m_pointer = {-1, -1};
    bool m_hasDrawing = true;
    bool m_hasOtherPointer = true;
    bool m_hasOtherWindows = true;
    bool m_hasOtherDisplays = true;
    bool m_hasOtherWallpaper = true;
};

} // namespace ardeno
