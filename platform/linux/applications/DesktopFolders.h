// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardeno {

// The folders with desktop files, as they were when they were listed.
class DesktopFolders final {
public:
    // `roots` in falling precedence: a file hides those of the same name in later folders.
    explicit DesktopFolders(const QStringList &roots);

    // "$XDG_DATA_HOME/applications" and those of $XDG_DATA_DIRS.
    static QStringList standardRoots();

    // Whether files may have come or gone since; asks only for the folders' times.
    bool haveChanged() const;

    // The paths of the desktop files by identifier: the name below the root without ".desktop", folders joined by "-".
    const QHash<QString, QString> &files() const { return m_files; }

    // The same with those that are hidden by files of earlier folders.
    const QMultiHash<QString, QString> &allFiles() const { return m_allFiles; }

private:
    struct Folder {
        QString path;
        qint64 changed; // Nanoseconds; 0 when it does not exist.
    };

    void list(const QString &folder, const QString &prefix, int depth);
    static qint64 changeTime(const QString &folder);

    QList<Folder> m_folders;
    QHash<QString, QString> m_files;
    QMultiHash<QString, QString> m_allFiles;
};

} // namespace ardeno
