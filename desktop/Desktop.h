// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Documents.h"
#include "desktop/FileBrowser.h"
#include "desktop/FileDialogs.h"
#include "desktop/Files.h"
#include "desktop/HotKeys.h"
#include "desktop/Launcher.h"
#include "desktop/MailProgram.h"
#include "desktop/OwnWindows.h"
#include "desktop/ScreenAccess.h"
#include "desktop/ScreenCapture.h"
#include "desktop/ScreenRecorder.h"
#include "desktop/TabSource.h"
#include "desktop/WindowMover.h"
#include "desktop/WindowServer.h"
#include "desktop/Workspace.h"

#include <QStringList>

#include <memory>

namespace ardeno {

// Which applications play the parts that rules name, on this desktop. Plain values, so that the rules stay portable.
struct DesktopRoles {
    QString ownID = {};                 // This program's identifier.
    QStringList fileBrowserIDs = {};    // Applications whose windows show folders.
    QStringList documentViewerIDs = {}; // The desktop's own viewers of documents.
    QStringList alwaysListedIDs = {};   // Kept among the running applications even without a window.
    QStringList foreignBrowserIDs = {}; // Browsers that exist on other desktops alone.

    bool operator==(const DesktopRoles &) const = default;
};

// Everything that a desktop session offers. The interfaces are never null.
struct Desktop {
    QString session = {}; // "x11", "wayland", "none".
    DesktopRoles roles = {};
    std::unique_ptr<Workspace> workspace = {};
    std::unique_ptr<WindowServer> windowServer = {};
    std::unique_ptr<ScreenCapture> screenCapture = {};
    std::unique_ptr<ScreenRecorder> screenRecorder = {};
    std::unique_ptr<ScreenAccess> screenAccess = {};
    std::unique_ptr<TabSource> tabSource = {};
    std::unique_ptr<WindowMover> windowMover = {};
    std::unique_ptr<Launcher> launcher = {};
    std::unique_ptr<FileBrowser> fileBrowser = {};
    std::unique_ptr<Documents> documents = {};
    std::unique_ptr<Files> files = {};
    std::unique_ptr<MailProgram> mailProgram = {};
    std::unique_ptr<HotKeys> hotKeys = {};
    std::unique_ptr<OwnWindows> ownWindows = {};
    std::unique_ptr<FileDialogs> fileDialogs = {};
};

} // namespace ardeno
