// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowLocation.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/running/LiveWindow.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace ardeno {

// Finds the folders that windows of file managers show. Asks those that answer, and for the others looks for a folder
// of the window's name which the program watches for changes. Used on a worker thread.
class FileManagers final {
public:
    // What is certain about these windows; those without a certain folder are missing.
    static QList<WindowLocation> locations(const QList<LiveWindow> &windows);

    // By the window's path on the bus: the folders of its tabs. From the answer of a file manager.
    using TabFolders = QHash<QString, QStringList>;
    // The one of a window's tabs that its title names, or its only one.
    static std::optional<QString> shownTab(const QStringList &tabs, const QString &title);

private:
    static TabFolders askForTabs(const SessionBus &bus, const QString &busName);
    // Takes the windows out of the list that their programs know about, whether they show a folder or not.
    static QList<WindowLocation> askAbout(QList<LiveWindow> *windows);
};

} // namespace ardeno
