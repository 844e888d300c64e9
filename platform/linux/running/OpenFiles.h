// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace ardeno {

// What a process holds open. Empty when it has ended or is not ours.
struct OpenFiles {
    QStringList files = {}; // Regular files that are still where they were opened.
    QStringList folders = {};
    QSet<quint64> watched = {}; // Inode numbers of the files and folders whose changes it is told of.
    bool watchesFiles = false;  // Whether it is told of any changes at all.
    bool runsTerminal = false;  // It shows what other programs write.

    static OpenFiles of(qint64 processID);

    // Whether the process holds the file open or is told of its changes: it shows it, in whichever of its tabs.
    bool holds(const QString &path) const;
};

} // namespace ardeno
