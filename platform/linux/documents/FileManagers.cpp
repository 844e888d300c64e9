// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/documents/FileManagers.h"

#include "platform/linux/documents/KnownFolders.h"
#include "platform/linux/documents/WindowTitles.h"
#include "platform/linux/files/PathEntry.h"
#include "platform/linux/files/PathText.h"
#include "platform/linux/running/OpenFiles.h"
#include "platform/linux/running/ProcessFacts.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <chrono>

namespace ardeno {

namespace {

constexpr std::chrono::milliseconds managerPatience(250);

WindowLocation located(const LiveWindow &window, const QString &path)
{
    return {window.title, path, window.windowID, window.processID};
}

std::optional<QString> pathInTitle(const LiveWindow &window)
{
    QStringList folders = WindowTitles::paths(window.title, window.applicationName, QDir::homePath());
    folders.removeIf([](const QString &path) { return !PathText::isFolder(path); });
    // The longest one is the path without the application's name behind it.
    return folders.isEmpty() ? std::nullopt : std::optional(QDir::cleanPath(folders.first()));
}

QString shownName(const LiveWindow &window)
{
    return WindowTitles::folderName(window.title, window.applicationID, window.applicationName);
}

// Looks windows up by the names in their titles. A program watches the folders it shows, so that a folder of the same
// name elsewhere, or one it showed before, is not mistaken for it.
class ByName final {
public:
    explicit ByName(const QList<LiveWindow> &windows) : m_windows(windows)
    {
        QSet<QString> names;
        QStringList paths;
        for (const LiveWindow &window : windows) {
            names.insert(shownName(window));
            if (!window.processID || m_open.contains(*window.processID))
                continue;
            const OpenFiles open = OpenFiles::of(*window.processID);
            paths += open.folders + ProcessFacts(*window.processID).pathArguments();
            m_open.insert(*window.processID, open);
        }
        m_folders = KnownFolders::named(names, paths);
    }

    std::optional<QString> path(const LiveWindow &window) const
    {
        const QString name = shownName(window);
        if (name.isEmpty() || !window.processID || isTwice(window))
            return std::nullopt;
        const OpenFiles &open = *m_open.constFind(*window.processID);
        QHash<quint64, QString> found; // A folder may have several paths; the first is as good as any.
        for (const QString &folder : m_folders.value(name)) {
            const quint64 number = PathEntry::of(folder).inode;
            if ((!open.watchesFiles || open.watched.contains(number)) && !found.contains(number))
                found.insert(number, folder);
        }
        return found.size() == 1 ? std::optional(*found.cbegin()) : std::nullopt;
    }

private:
    bool isTwice(const LiveWindow &window) const
    {
        return std::count_if(m_windows.begin(), m_windows.end(), [&](const LiveWindow &other) {
                   return other.processID == window.processID && other.title == window.title;
               }) > 1;
    }

    const QList<LiveWindow> &m_windows;
    QHash<qint64, OpenFiles> m_open;
    QHash<QString, QStringList> m_folders;
};

} // namespace

std::optional<QString> FileManagers::shownTab(const QStringList &tabs, const QString &title)
{
    if (tabs.size() == 1)
        return tabs.first();
    QStringList named = tabs;
    named.removeIf([&](const QString &path) { return PathText::baseName(path) != title; });
    named.removeDuplicates();
    return named.size() == 1 ? std::optional(named.first()) : std::nullopt;
}

FileManagers::TabFolders FileManagers::askForTabs(const SessionBus &bus, const QString &busName)
{
    TabFolders found;
    const BusValue windows = bus.property(busName, "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1",
                                          "OpenWindowsWithLocations", managerPatience);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        QStringList &tabs = found[windows.at(i).at(0).text()];
        const BusValue addresses = windows.at(i).at(1);
        for (qsizetype tab = 0; tab < addresses.size(); ++tab) {
            // A tab that shows no folder of this machine counts, and has no path.
            tabs.append(PathText::fromAddress(addresses.at(tab).text().toUtf8()).value_or(QString()));
        }
    }
    return found;
}

QList<WindowLocation> FileManagers::askAbout(QList<LiveWindow> *windows)
{
    const LazySessionBus session(managerPatience);
    QHash<QString, TabFolders> answers;
    QList<WindowLocation> found;
    windows->removeIf([&](const LiveWindow &window) {
        if (window.busName.isEmpty() || window.objectPath.isEmpty())
            return false;
        if (!answers.contains(window.busName))
            answers.insert(window.busName, askForTabs(session.bus(), window.busName));
        const TabFolders &answer = answers[window.busName];
        const auto path = shownTab(answer.value(window.objectPath), window.title);
        if (path && !path->isEmpty())
            found.append(located(window, *path));
        return answer.contains(window.objectPath);
    });
    return found;
}

QList<WindowLocation> FileManagers::locations(const QList<LiveWindow> &windows)
{
    QList<LiveWindow> left = windows;
    QList<WindowLocation> found = askAbout(&left);
    if (left.isEmpty())
        return found;
    const ByName byName(left);
    for (const LiveWindow &window : left) {
        std::optional<QString> path = pathInTitle(window);
        if (!path)
            path = byName.path(window);
        if (path)
            found.append(located(window, *path));
    }
    return found;
}

} // namespace ardeno
