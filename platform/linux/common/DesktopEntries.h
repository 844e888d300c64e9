// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace ardeno {

// An installed application, as its desktop file describes it.
struct DesktopEntry {
    QString id = {};        // The application's identifier: the file's, or the one that a browser is known by.
    QString path = {};      // Of the desktop file.
    QString name = {};      // Localised; empty when it has none.
    QString iconName = {};  // Of the icon theme, or a full path; empty when it has none.
    bool isBrowser = false; // It says that it shows pages of the web.
    bool isMailProgram = false;

    bool operator==(const DesktopEntry &) const = default;
};

// The installed applications. Nothing is read before it is asked for, each file at most once until the folders change.
class DesktopEntries final {
public:
    DesktopEntries();
    // With the desktop files of these folders instead of the session's, in falling precedence.
    explicit DesktopEntries(QStringList roots);
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries &) = delete;
    DesktopEntries &operator=(const DesktopEntries &) = delete;

    // By the identifier of an application or of a desktop file (without ".desktop", letter case ignored).
    std::optional<DesktopEntry> find(const QString &id);
    // By the class that its windows have; absent when two applications claim it.
    std::optional<DesktopEntry> findByWindowClass(const QString &windowClass);
    // By the program (full path) and the arguments of a process; absent unless exactly one application fits best.
    std::optional<DesktopEntry> findByCommand(const QString &program, const QStringList &arguments);
    // Those that menus show.
    QList<DesktopEntry> shown();

private:
    struct Index;

    Index &index();
    static std::optional<DesktopEntry> load(Index &index, const QString &fileID);

    QStringList m_roots;
    std::unique_ptr<Index> m_index;
};

} // namespace ardeno
