// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QHash>

namespace ardeno {

// The processes that had a connection to an X server at one moment. A later process is none of them even when it has
// been given the number of one.
class RunningProcesses final {
public:
    static RunningProcesses of(const X11Connection &connection);

    bool contains(qint32 processID) const;

private:
    QHash<qint32, quint64> m_startTimes = {}; // By the process; in the system's ticks since it was booted.
};

// The process at the other end of each connection on this machine, by the number that all windows of the connection
// have in common. Empty where the server does not tell.
QHash<quint32, qint32> connectedProcesses(const X11Connection &connection);

} // namespace ardeno
