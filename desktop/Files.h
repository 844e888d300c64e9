// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>
#include <QHash>
#include <QString>
#include <QStringList>

namespace ardeno {

// What there is at a path.
struct PathFacts {
    enum class Kind {
        Missing,
        File,
        Folder,
        Other,  // A device, a pipe or a socket.
        Silent, // Its disk did not answer.
    };

    Kind kind = Kind::Missing;
    QString canonicalPath = {}; // Without links; the path itself when nothing is known of it.

    bool operator==(const PathFacts &) const = default;
};

// Looks at files on disks that may never answer. Used on the main thread; outlives the tasks it gave out.
class Files {
public:
    virtual ~Files() = default;

    // Of each of these absolute paths. Never throws, and waits for nobody longer than some seconds.
    virtual QCoro::Task<QHash<QString, PathFacts>> facts(QStringList paths) = 0;
};

} // namespace ardeno
