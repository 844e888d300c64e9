// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Preferences.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

// Every stored setting of the application, with its type.
namespace ardeno::keys {

inline constexpr PreferenceKey<bool> includeBrowser{"includeBrowser"};
inline constexpr PreferenceKey<QDateTime> lastUpdateCheck{"lastUpdateCheck"};
// JSON of CaptureExclusions, which have a file of their own now; see ExclusionsFile.
inline constexpr PreferenceKey<QByteArray> captureExclusions{"captureExclusions"};
// The copies of unreadable libraries that the user has not seen yet: their paths.
inline constexpr PreferenceKey<QStringList> keptCopies{"keptCopies"};
inline constexpr PreferenceKey<int> quickSaveShortcut{"quickSaveShortcut"};
inline constexpr PreferenceKey<QString> draftProjectID{"draftProjectID"}; // UUID text.
inline constexpr PreferenceKey<QString> draftProjectName{"draftProjectName"};
inline constexpr PreferenceKey<QString> captureDraftTitle{"captureDraftTitle"};
inline constexpr PreferenceKey<QString> captureDraftNext{"captureDraftNext"};
inline constexpr PreferenceKey<bool> captureDraftRecording{"captureDraftRecording"};
inline constexpr PreferenceKey<bool> resumeCaptureSetup{"resumeCaptureSetup"};
inline constexpr PreferenceKey<bool> starterExampleMigrationV2{"starterExampleMigrationV2"};
inline constexpr PreferenceKey<bool> launchOverview{"launchOverview"};
inline constexpr PreferenceKey<QString> lastOpenedProjectID{"lastOpenedProjectID"}; // UUID text.
inline constexpr PreferenceKey<bool> newsletterPromptDismissed{"newsletterPromptDismissed"};
inline constexpr PreferenceKey<bool> applicationsFolderNoticeShown{"applicationsFolderNoticeShown"};
inline constexpr PreferenceKey<bool> closeNoticeShown{"closeNoticeShown"};
// Notes that could not be written yet: JSON of UnsavedNote, one each.
inline constexpr PreferenceKey<QStringList> unsavedNotes{"unsavedNotes"};
// What stood in open forms when the program was ended: JSON of KeptDetails and KeptReport.
inline constexpr PreferenceKey<QString> keptDetails{"keptDetails"};
inline constexpr PreferenceKey<QString> keptReport{"keptReport"};
inline constexpr PreferenceKey<QString> windowPlace{"windowPlace"}; // Base64 of what Qt saves of a window.

} // namespace ardeno::keys
