// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/applications/DesktopEntries.h"
#include "tests/Printing.h"
#include "tests/desktop/DesktopFile.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace ardeno {

// Desktop files in two folders, of which the user's own goes first.
struct InstalledApplications {
    void install(const QString &id, const QByteArray &lines, const QString &root = "system")
    {
        desktop_test::writeDesktopFile(folder.filePath(root), id, lines);
    }

    static QString idOf(const std::optional<DesktopEntry> &entry) { return entry ? entry->id : "none"; }

    static QString idOf(const QList<DesktopEntry> &entries)
    {
        QStringList ids;
        for (const DesktopEntry &entry : entries)
            ids.append(entry.id);
        ids.sort();
        return ids.isEmpty() ? "none" : ids.join('+');
    }

    QTemporaryDir folder;
    DesktopEntries entries{{folder.filePath("user"), folder.filePath("system")}};
};

} // namespace ardeno
