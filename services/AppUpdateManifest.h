// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
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

    // Absent when the bytes are no manifest: a required key is missing or any known one has another type. Of very many
    // or very long notes only as much is kept as a person would read.
    static std::optional<AppUpdateManifest> fromJson(const QByteArray &bytes);
};

// Whether a link of a manifest may be opened: https with a host, and nothing else.
bool isOpenable(const std::optional<QUrl> &link);

} // namespace ardeno
