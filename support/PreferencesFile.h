// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/AtomicFile.h"

#include <QString>
#include <QVariantMap>

#include <optional>

namespace ardeno {

// The file of the settings: "settings.json", an object with a member for each. Written at once as a whole.
class PreferencesFile final {
public:
    explicit PreferencesFile(const QString &folder);

    const QString &folder() const { return m_folder; }

    // As they stand on disk; absent when there are none. Those of the older "settings.ini" where there is no newer
    // file. Throws Failure: of domain "Settings" when what stands there are no settings, else the system's.
    std::optional<QVariantMap> read();
    // Makes these changes (an invalid value removes a setting) to what stands on disk. Throws Failure.
    QVariantMap write(const QVariantMap &changes);
    // Gives what are no settings another name: the new path, absent when that failed.
    std::optional<QString> moveAside() const;
    // Whether there is anything that was moved aside.
    bool hasMovedAside() const;

private:
    std::optional<QVariantMap> readFile();

    QString path() const { return m_folder + "/settings.json"; }

    QString olderPath() const { return m_folder + "/settings.ini"; }

    QString m_folder;
    std::optional<FileStamp> m_stamp = {}; // Of the file that was read or written last.
    QVariantMap m_known = {};              // What it held.
};

} // namespace ardeno
