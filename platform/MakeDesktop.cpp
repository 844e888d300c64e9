// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MakeDesktop.h"

#include "platform/linux/applications/ApplicationLauncher.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/applications/LinuxMailProgram.h"
#include "platform/linux/applications/LinuxRoles.h"
#include "platform/linux/browsers/BrowserStateTabs.h"
#include "platform/linux/bus/PortalAppearance.h"
#include "platform/linux/bus/PortalFileDialogs.h"
#include "platform/linux/documents/ShownLocations.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/running/ProcessEnd.h"
#include "platform/linux/x11/keys/X11HotKeys.h"
#include "platform/linux/x11/pictures/X11ScreenAccess.h"
#include "platform/linux/x11/pictures/X11ScreenCapture.h"
#include "platform/linux/x11/recording/X11ScreenRecorder.h"
#include "platform/linux/x11/windows/X11Connection.h"
#include "platform/linux/x11/windows/X11LiveWindows.h"
#include "platform/linux/x11/windows/X11Messages.h"
#include "platform/linux/x11/windows/X11OwnWindows.h"
#include "platform/linux/x11/windows/X11WindowMover.h"
#include "platform/linux/x11/windows/X11WindowServer.h"
#include "platform/linux/x11/windows/X11Workspace.h"
#include "platform/null/NullDesktop.h"

#include <memory>

namespace ardeno {

namespace {

// A desktop that cannot be read may still offer services to its programs.
Desktop makeUnreadableDesktop(const QString &session, const QString &reason)
{
    Desktop desktop = makeNullDesktop(session, reason, linuxRoles());
    desktop.fileDialogs = std::make_unique<PortalFileDialogs>();
    return desktop;
}

// An X server inside a Wayland session shows black where other windows are and knows only some of them.
Desktop makeWaylandDesktop()
{
    Desktop desktop = makeUnreadableDesktop("wayland", "Windows and screens of a Wayland session cannot be read yet. "
                                                       "Choose an Xorg session when you log in.");
    desktop.mailProgram = std::make_unique<LinuxMailProgram>();
    return desktop;
}

bool isWaylandSession()
{
    return qgetenv("XDG_SESSION_TYPE").toLower() == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

DesktopFocus x11Focus(const std::shared_ptr<X11Connection> &connection, const std::shared_ptr<DesktopEntries> &entries)
{
    return {.liveWindows = x11LiveWindows(connection, entries),
            .activeWindow = [connection] { return X11Messages::activeWindow(*connection); },
            .activate = [connection](quint32 window) { X11Messages::activate(*connection, window); },
            .isUserSwitching = [connection] { return X11Messages::isUserSwitching(*connection); }};
}

Desktop makeX11Desktop()
{
    const auto connection = std::make_shared<X11Connection>();
    if (connection->isXWayland())
        return makeWaylandDesktop();
    const auto entries = std::make_shared<DesktopEntries>();
    Desktop desktop;
    desktop.session = "x11";
    desktop.roles = linuxRoles();
    desktop.workspace = std::make_unique<X11Workspace>(connection, entries);
    desktop.windowServer = std::make_unique<X11WindowServer>(connection, entries);
    const auto keeper = std::make_shared<X11RedirectionKeeper>(qgetenv("DISPLAY"));
    desktop.screenCapture = std::make_unique<X11ScreenCapture>(desktop.roles.ownID, keeper, entries->remembered());
    desktop.screenRecorder = std::make_unique<X11ScreenRecorder>(desktop.roles.ownID, keeper, entries);
    desktop.screenAccess = std::make_unique<X11ScreenAccess>();
    const LiveWindowList windows = x11LiveWindows(connection, entries);
    desktop.tabSource = std::make_unique<BrowserStateTabs>(windows);
    desktop.fileBrowser = std::make_unique<LinuxFileBrowser>(windows, desktop.roles.fileBrowserIDs);
    desktop.documents = std::make_unique<LinuxDocuments>(windows, desktop.roles.fileBrowserIDs);
    desktop.files = std::make_unique<LinuxFiles>();
    desktop.windowMover = std::make_unique<X11WindowMover>(connection, entries);
    desktop.launcher = std::make_unique<ApplicationLauncher>(entries, x11Focus(connection, entries));
    desktop.mailProgram = std::make_unique<LinuxMailProgram>();
    desktop.hotKeys = std::make_unique<X11HotKeys>();
    desktop.ownWindows = std::make_unique<X11OwnWindows>(connection);
    desktop.fileDialogs = std::make_unique<PortalFileDialogs>();
    return desktop;
}

} // namespace

Desktop makeDesktop()
{
    if (isWaylandSession())
        return makeWaylandDesktop();
    try {
        return makeX11Desktop();
    } catch (const Failure &failure) {
        return makeUnreadableDesktop("none", failure.description());
    }
}

std::unique_ptr<DesktopAppearance> makeDesktopAppearance()
{
    return std::make_unique<PortalAppearance>();
}

bool isDisplayReachable()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || X11Connection::isReachable(qgetenv("DISPLAY"));
}

bool waitForProcessEnd(qint64 process, std::chrono::milliseconds patience)
{
    return ProcessEnd::waitFor(process, patience);
}

QString applicationsFolder()
{
    return {};
}

} // namespace ardeno
