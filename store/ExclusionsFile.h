// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureExclusions.h"
#include "desktop/Workspace.h"
#include "support/AtomicFile.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <optional>

namespace ardeno {

// What is left out of captures, and by what the desktop knew those applications, which it need not know any more.
struct StoredExclusions {
    QList<SavedApp> apps = {};
    QList<QString> domains = {};
    std::optional<QList<ApplicationMarks>> marks = {}; // Absent in a file of an older version.

    CaptureExclusions rules() const { return {apps, domains}; }

    static constexpr auto fields()
    {
        return std::tuple{Field{"apps", &StoredExclusions::apps}, Field{"domains", &StoredExclusions::domains},
                          Field{"marks", &StoredExclusions::marks}};
    }
};

// What is left out of captures, on disk: "exclusions.json" in the settings' folder. It is read and written as the
// library is, because what is not known to be excluded would be shown. All functions but path() throw Failure.
class ExclusionsFile final {
public:
    explicit ExclusionsFile(const QString &folder) : m_folder(folder) {}

    QString path() const { return m_folder + "/exclusions.json"; }

    // Also a link to a file that is not there.
    bool exists() const { return QFileInfo(path()).isSymLink() || FileStamp::ofFile(path()).has_value(); }

    // As they stand on disk now; absent when there is no file.
    std::optional<StoredExclusions> read();
    // Replaces the file that was read last, and no other.
    void write(const StoredExclusions &exclusions);
    // Writes a file where there is none, whatever the bytes are.
    void create(QByteArrayView bytes);
    // Gives a file another name, read or not: its new path. Absent when there is none.
    std::optional<QString> moveAside();

private:
    QString m_folder;
    std::optional<FileStamp> m_stamp; // Of the file that was read or written last.
    StoredExclusions m_known;         // What it held.
};

} // namespace ardeno
