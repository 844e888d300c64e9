// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace ardeno::BusActivation {

enum class Answer {
    Opened, // Also when nobody had answered in time: somebody is there.
    NobodyThere,
};

// Asks the application that has this name on the session's bus, or that the bus starts for it, to show itself or to
// open these addresses. A service whose program does not start is nobody. Waits for the answer.
Answer open(const QString &applicationID, const QList<QByteArray> &addresses);

} // namespace ardeno::BusActivation
