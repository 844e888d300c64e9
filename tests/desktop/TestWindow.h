// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>

#include <xcb/xcb.h>

namespace ardeno::desktop_test {

// A window of this process on a connection of its own: an application that says of itself what a test wants.
class TestWindow final {
public:
    enum class Kind { Normal, Popup }; // A popup is none of the window manager's business.

    explicit TestWindow(const QRect &geometry = {100, 100, 300, 200}, Kind kind = Kind::Normal);
    ~TestWindow();
    TestWindow(const TestWindow &) = delete;
    TestWindow &operator=(const TestWindow &) = delete;

    xcb_window_t id() const { return m_window; }

    void setTitle(const QByteArray &bytes, const char *type = "UTF8_STRING", const char *property = "_NET_WM_NAME");
    void setClass(const QByteArray &instance, const QByteArray &windowClass);
    void setText(const char *property, const QByteArray &bytes);
    void setCardinals(const char *property, const QList<quint32> &values);
    void setAtoms(const char *property, const QList<const char *> &names);
    // Where the window manager puts it is its own affair; this is the place that is asked for.
    void askForPosition();
    // Shows it and waits until it is visible and, when there is a window manager, listed by it.
    void show();
    void hide();

private:
    xcb_atom_t atom(const char *name);
    void change(const char *property, xcb_atom_t type, uint8_t format, const void *data, uint32_t count);
    bool isVisible();
    bool isListed();
    bool hasManager();
    QList<xcb_window_t> windows(xcb_window_t window, const char *property);

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    xcb_window_t m_window;
    QRect m_geometry;
    Kind m_kind;
};

} // namespace ardeno::desktop_test
