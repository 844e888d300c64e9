// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>

namespace ardeno {

// Atoms that this program uses, interned in one round trip.
enum class X11Atom {
    CompoundText,
    Edid,
    EsetrootPixmap,
    GtkApplicationID,
    GtkFrameExtents,
    GtkUniqueBusName,
    GtkWindowObjectPath,
    KdeDesktopFile,
    NetActiveWindow,
    NetClientList,
    NetClientListStacking,
    NetCompositorSelection, // Of the screen in use.
    NetCurrentDesktop,
    NetDesktopNames,
    NetFrameExtents,
    NetMoveResizeWindow,
    NetNumberOfDesktops,
    NetShowingDesktop,
    NetSupported,
    NetSupportingWmCheck,
    NetWmActionMove,
    NetWmActionResize,
    NetWmAllowedActions,
    NetWmDesktop,
    NetWmName,
    NetWmPid,
    NetWmPing,
    NetWmState,
    NetWmStateAbove,
    NetWmStateFullscreen,
    NetWmStateHidden,
    NetWmStateMaximizedHorz,
    NetWmStateMaximizedVert,
    NetWmStateShaded,
    NetWmStateSticky,
    NetWmStrut,
    NetWmStrutPartial,
    NetWmWindowType,
    NetWmWindowTypeDesktop,
    NetWmWindowTypeDialog,
    NetWmWindowTypeDock,
    NetWmWindowTypeMenu,
    NetWmWindowTypeNormal,
    NetWmWindowTypeNotification,
    NetWmWindowTypeSplash,
    NetWmWindowTypeToolbar,
    NetWmWindowTypeUtility,
    RootPixmap,
    Utf8String,
    WmChangeState,
    WmProtocols,
    WmState,
    Count
};

struct FreeWithLibc {
    void operator()(void *pointer) const { std::free(pointer); }
};

// A reply of the X server; empty when the request failed, for instance because the window has just gone.
template <typename T>
using X11Reply = std::unique_ptr<T, FreeWithLibc>;

// A connection to an X server, its atoms and which extensions are there. Used from one thread.
class X11Connection final {
public:
    // Throws notAvailable() with the reason when there is no display of this name ($DISPLAY) or it is not reachable.
    explicit X11Connection(const QByteArray &displayName = qgetenv("DISPLAY"));

    // Whether a server answers to this name.
    static bool isReachable(const QByteArray &displayName);

    xcb_connection_t *xcb() const { return m_connection.get(); }

    const xcb_screen_t &screen() const { return *m_screen; }

    xcb_window_t root() const { return m_screen->root; }

    xcb_atom_t atom(X11Atom name) const { return m_atoms[static_cast<size_t>(name)]; }

    // False once the server has gone or has ended the connection.
    bool isAlive() const { return xcb_connection_has_error(m_connection.get()) == 0; }

    // Available, or the sentence that says it is no longer alive.
    Capability availability() const;

    // What the server offers at least: monitors (RandR 1.5), process ids of clients (Resource 1.2).
    bool hasMonitors() const { return m_hasMonitors; }

    bool hasClientIDs() const { return m_hasClientIDs; }

    // Whether this is the X server of a Wayland session, which shows neither the screen nor other windows.
    bool isXWayland() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    void internAtoms(int screenNumber);
    void askExtensions();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    const xcb_screen_t *m_screen = nullptr;
    std::array<xcb_atom_t, static_cast<size_t>(X11Atom::Count)> m_atoms = {};
    bool m_hasMonitors = false;
    bool m_hasClientIDs = false;
};

} // namespace ardeno
