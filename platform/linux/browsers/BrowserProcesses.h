// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserIdentities.h"
#include "platform/linux/running/ProcessFacts.h"
#include "support/Date.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// The main process of a running browser.
struct BrowserProcess {
    qint32 id = 0;
    KnownBrowser browser = {};
    Date startedAt = {};
    // Full paths of the state files that it is writing (Chromium family, one for each profile with ordinary windows)
    // or of the lock in its profile (Firefox). What a process holds open cannot be stale, as a lock file in a profile
    // can.
    QStringList openFiles = {};
    bool isVisible = true; // False: the system does not show which files it has open.
    ProcessFacts facts = ProcessFacts(0);

    bool operator==(const BrowserProcess &) const = default;
};

namespace BrowserProcesses {

// The browser that a process is, one of its helpers included.
std::optional<KnownBrowser> browserOf(qint32 processID);

// Those of this user whose state can be read, in the order in which they were started.
QList<BrowserProcess> running(const QString &processFolder = "/proc");

// Looks again at the files that it has open.
void refresh(BrowserProcess &process);

// A path of the process's as this program has to name it: a sandbox gives it a view of its own of the files. May wait
// for a slow disk.
QString reachablePath(const BrowserProcess &process, const QString &path);

} // namespace BrowserProcesses

} // namespace ardeno
