// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/browsers/BrowserIdentities.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

#include <sys/types.h>

// Starts programs. They get a desktop session of their own, the home as their folder, nothing on their standard streams
// and no other descriptor of this process, and no signal is ignored in them. All functions throw Failure and may wait
// for a disk that does not answer, so they belong on a worker thread.
namespace ardeno::DesktopLaunch {

// Those that were started; they must be waited for.
using Processes = QList<pid_t>;

// Starts the application of a desktop file, or asks the running one, with these files and folders.
Processes open(const DesktopEntry &entry, const QStringList &paths);

// The same with one of them, in a window of its own where the application can be asked for one.
Processes openSeparately(const DesktopEntry &entry, const QString &path);

// Starts the application of a desktop file with these words in the place that its command has for addresses.
Processes openAddresses(const DesktopEntry &entry, const QStringList &words);

// The browser that the application is; absent when it is none that is known.
std::optional<KnownBrowser> browserOf(const DesktopEntry &entry);

// Shows the folder, or the file in its folder, in the desktop session's file browser, and waits for its answer.
void showInFileBrowser(const QString &path);

// The desktop files that the user has chosen for web addresses, and for the kind of a file or folder; empty when there
// is none, and for kinds that would be run rather than shown.
QString handlerOfWeb();
QString handlerOfPath(const QString &path);

} // namespace ardeno::DesktopLaunch
