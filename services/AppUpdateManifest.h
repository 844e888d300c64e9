// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace ardeno {

// What the maker says of the newest version.
struct AppUpdateManifest {
    QString latestVersion = {}; // Dotted, "1.10".
    std::optional<QString> minimumSupportedVersion = {};
    QStringList releaseNotes = {}; // One line of notes each.
    std::optional<QUrl> releaseNotesURL = {};
    std::optional<QUrl> downloadURL = {};

    bool operator==(const AppUpdateManifest &) const = default;
};

} // namespace ardeno
