// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace ardeno {

// A browser has one identifier, however it was packaged: its tabs and its exclusion belong to the browser.
namespace BrowserIdentities {

// The browser's identifier for its desktop file ("firefox-esr" → "org.mozilla.firefox"), else the file's own.
QString applicationID(const QString &desktopFileID);

// The desktop files that an application may have, the likeliest first; only itself when it is no browser.
QStringList desktopFileIDs(const QString &applicationID);

} // namespace BrowserIdentities

} // namespace ardeno
