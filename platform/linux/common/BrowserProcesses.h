// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ardeno {

// The main process of a running browser.
struct BrowserProcess {
    qint32 id = 0;
    QString browserID = {};
    // Chromium family: the session files that it is writing, one for each of its profiles. Firefox: the lock file in
    // its profile. Full paths as this program sees them. Such a descriptor cannot be stale, as a lock in a profile can.
    QStringList openFiles = {};
    bool isReadable = true; // False: the system does not show which files it has open.

    bool operator==(const BrowserProcess &) const = default;
};

namespace BrowserProcesses {

// Those of this user, in the order in which they were started.
QList<BrowserProcess> running(const QString &browserID, const QString &processFolder = "/proc");

} // namespace BrowserProcesses

} // namespace ardeno
