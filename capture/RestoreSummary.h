// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/RestorePlan.h"

#include <optional>

namespace ardeno {

// A saved window that was left alone, and why.
struct SkippedWindow {
    QString appID = {};
    QString title = {};
    QString reason = {}; // A few words that can be shown.

    bool operator==(const SkippedWindow &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"appID", &SkippedWindow::appID},
            Field{"title", &SkippedWindow::title},
            Field{"reason", &SkippedWindow::reason},
        };
    }
};

// What became of the saved window positions.
struct RestoreResult {
    qint64 restoredCount = 0; // Size and position are as saved.
    qint64 skippedCount = 0;
    bool accessibilityRequired = false; // The desktop wants the user's consent first; both counts are 0.
    QList<SkippedWindow> skipped = {};  // One for each that is counted.

    bool operator==(const RestoreResult &) const = default;
};

// Everything that one resume did.
struct RestoreReport {
    RestoreOutcome outcome = {};
    std::optional<RestoreResult> layout = {}; // Absent when the layout was not asked for.
    qint64 folders = 0;                       // Shown by a file browser again.
    qint64 viewerDocuments = 0;               // Opened in the desktop's own viewers.
    qint64 documents = 0;                     // Opened in any other application.

    bool operator==(const RestoreReport &) const = default;
};

namespace RestoreSummary {

// The one sentence that tells the user what happened.
QString text(const RestoreReport &report);
// The same of windows that were placed on their own.
QString text(const RestoreResult &layout);

} // namespace RestoreSummary

} // namespace ardeno
