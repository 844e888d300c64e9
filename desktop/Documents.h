// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "desktop/WindowLocation.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace ardeno {

// The documents that applications show, without those of file browsers, web browsers and mail programs. Used on the
// main thread; outlives the tasks it gave out.
class Documents {
public:
    virtual ~Documents() = default;

    virtual Capability availability() const = 0;
    // Of the windows of these processes, also of those that are minimised; windows whose document is not known for
    // certain are missing. Never throws, and waits for nobody longer than about a second.
    virtual QCoro::Task<QList<WindowLocation>> locations(QSet<qint64> processIDs) = 0;
    // The same for every process of an application.
    virtual QCoro::Task<QList<WindowLocation>> locationsOf(QString applicationID) = 0;
    // Those of these files that an application certainly has open, also behind another one in the same window. What
    // is missing may be open nevertheless. Never throws, and waits no longer than about a second.
    virtual QCoro::Task<QStringList> held(QString applicationID, QStringList paths) = 0;
};

} // namespace ardeno
