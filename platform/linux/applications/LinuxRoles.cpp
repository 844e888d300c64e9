// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/LinuxRoles.h"

namespace ardeno {

DesktopRoles linuxRoles()
{
    DesktopRoles roles;
    roles.ownID = "org.ardeno.Ardeno";
    roles.fileBrowserIDs = {
        "org.gnome.Nautilus", "thunar", "org.kde.dolphin", "nemo", "caja", "caja-browser", "pcmanfm", "pcmanfm-qt",
    };
    roles.documentViewerIDs = {
        "org.gnome.Evince",
        "org.kde.okular",
        "org.gnome.eog",
        "org.gnome.Loupe",
        "org.gnome.Papers",
        "org.kde.gwenview",
        "org.xfce.ristretto",
        "atril",
        "eom",
        "xreader",
        "xviewer",
    };
    // A file browser that draws the desktop has no window of its own, and yet it runs.
    roles.alwaysListedIDs = roles.fileBrowserIDs;
    roles.foreignBrowserIDs = {"com.apple.Safari"};
    return roles;
}

} // namespace ardeno
