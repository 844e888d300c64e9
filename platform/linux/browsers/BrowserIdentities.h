// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// A browser has one identifier, however it was packaged: its tabs and its exclusion belong to the browser.
struct KnownBrowser {
    QString id = {};
    QString name = {};
    std::optional<BrowserFamily> family = {}; // Absent: nothing reads its state.

    bool operator==(const KnownBrowser &) const = default;
};

// The one table of browsers: from processes, desktop files and window classes to the browser.
namespace BrowserIdentities {

// The browser that a process is, by the path of its program ("/usr/lib/firefox-esr/firefox-esr"). It stays the same
// under whatever name the program was started.
std::optional<KnownBrowser> ofProgram(QString program);

// The browser that is called so: by an identifier, a desktop file, a window class or a command; letter case ignored.
std::optional<KnownBrowser> named(const QString &name);

// The browser's identifier for its desktop file ("firefox-esr" → "org.mozilla.firefox"), else the file's own.
QString applicationID(const QString &desktopFileID);

// The desktop files that an application may have, the likeliest first; only itself when it is no browser.
QStringList desktopFileIDs(const QString &applicationID);

} // namespace BrowserIdentities

} // namespace ardeno
