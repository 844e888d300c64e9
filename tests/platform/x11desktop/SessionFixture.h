// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11WindowServer.h"
#include "platform/linux/x11/windows/X11Workspace.h"
#include "tests/Printing.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/DesktopFile.h"
#include "tests/desktop/TestWindow.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <memory>

namespace ardeno {

// The back end on the desktop that the test runs on.
struct SessionFixture {
    // Puts a desktop file where only this desktop finds it.
    static void install(const QString &id, const QByteArray &lines)
    {
        desktop_test::writeDesktopFile(desktop_test::ownDesktopFiles(), id, "Exec=true\n" + lines);
    }

    // Empty when the window is not among those on screen.
    std::optional<WindowInfo> onScreen(quint32 window)
    {
        for (const WindowInfo &info : server.windows()) {
            if (info.windowID == window)
                return info;
        }
        return std::nullopt;
    }

    QString idOf(quint32 window)
    {
        const auto info = onScreen(window);
        return info ? info->applicationID.value_or("none") : "not on screen";
    }

    std::optional<RunningApplication> running(const QString &id)
    {
        for (const RunningApplication &application : workspace.runningApplications()) {
            if (application.id == id)
                return application;
        }
        return std::nullopt;
    }

    // The child of the root window that holds this window, and its rectangle: the frame, where there is one.
    xcb_window_t topLevel(xcb_window_t window) const
    {
        while (true) {
            const X11Reply<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(connection->xcb(), xcb_query_tree(connection->xcb(), window), nullptr));
            if (!tree || tree->parent == connection->root())
                return window;
            window = tree->parent;
        }
    }

    WindowRect rectangle(xcb_window_t window) const
    {
        const X11Reply<xcb_get_geometry_reply_t> reply(
            xcb_get_geometry_reply(connection->xcb(), xcb_get_geometry(connection->xcb(), window), nullptr));
        if (!reply)
            return {};
        const double border = 2.0 * reply->border_width;
        return {double(reply->x), double(reply->y), reply->width + border, reply->height + border};
    }

    std::shared_ptr<X11Connection> connection = std::make_shared<X11Connection>();
    std::shared_ptr<DesktopEntries> entries = std::make_shared<DesktopEntries>();
    X11WindowServer server{connection, entries};
    X11Workspace workspace{connection, entries};
};

} // namespace ardeno
