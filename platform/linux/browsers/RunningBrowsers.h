// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "platform/linux/browsers/BrowserProcesses.h"
#include "platform/linux/running/LiveWindow.h"

#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// A browser that runs, by the identifier that its windows have: one with a starter of its own is an application of its
// own, whose tabs, windows and exclusion belong together.
struct RunningBrowser {
    Browser browser = {};
    QList<BrowserProcess> processes = {}; // In the order in which they were started; empty: nobody reads its state.
    bool isReadWhole = true;              // False: it has windows of further processes, whose state nobody reads.

    bool operator==(const RunningBrowser &) const = default;
};

namespace RunningBrowsers {

// Those with a window on this desktop, each once; where windows are not shown, all whose state can be read.
QList<RunningBrowser> all(const std::optional<QList<LiveWindow>> &live, const QString &processFolder = "/proc");

// The windows of the process. Those that tell no process go by the browser.
QList<LiveWindow> windowsOf(const BrowserProcess &process, const QString &browserID, QList<LiveWindow> live);

} // namespace RunningBrowsers

} // namespace ardeno
