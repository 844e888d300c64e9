// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "model/WorkspaceRecords.h"

#include <QList>

#include <optional>

namespace ardeno {

// A connected display. Rectangles are in the desktop's global coordinates: points, origin top left, y downwards.
struct Display {
    quint32 id = 0;    // The same for the same monitor in every desktop session.
    QString name = {}; // What people call it; empty when it has no name.
    WindowRect bounds = {};
    WindowRect usableFrame = {}; // Without panels and docks.
    bool isMain = false;

    bool operator==(const Display &) const = default;
};

// A window as the window server sees it.
struct WindowInfo {
    quint32 windowID = 0;
    std::optional<qint32> processID = {};      // The owner's; absent when the desktop does not know it.
    std::optional<QString> applicationID = {}; // Absent when no application is known by the owner's process.
    QString applicationName = {};              // Localised; empty when it has none.
    QString title = {};                        // Empty when it has none.
    std::optional<WindowRect> frame = {};      // Incl. decoration, without client-side shadows.
    bool isNormalLayer = false;                // Not a panel, menu, dock, overlay or dialog.
    bool isOnScreen = true;                    // Not minimised, and on the current desktop.
    std::optional<quint32> desktop = {};       // The number of its virtual desktop; absent on all of them.
    std::optional<QList<QString>> states = {}; // Words of WindowStates; absent when nobody looks after the window.

    bool operator==(const WindowInfo &) const = default;
};

// The windows and displays of the desktop session. All functions answer at once, on the main thread.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    virtual Capability availability() const = 0;
    // In the desktop's own order; the main display need not come first.
    virtual QList<Display> displays() = 0;

    // The names of the virtual desktops in their order, empty ones for those without; fewer than two tell nothing.
    virtual QList<QString> virtualDesktops() { return {}; }

    // Front to back, incl. those that are not on screen now.
    virtual QList<WindowInfo> allWindows() = 0;

    // On screen now, front to back.
    QList<WindowInfo> windows()
    {
        QList<WindowInfo> shown = allWindows();
        shown.removeIf([](const WindowInfo &window) { return !window.isOnScreen; });
        return shown;
    }
};

} // namespace ardeno
