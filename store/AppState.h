// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureExclusions.h"
#include "model/WorkspaceRecords.h"
#include "services/AppUpdateManifest.h"
#include "store/Messages.h"

#include <QSet>

namespace ardeno {

class AppStore;

// A saved window that a resume left alone, and why.
struct UnplacedWindow {
    SavedWindow window = {};
    QString reason = {}; // A few words that can be shown.

    bool operator==(const UnplacedWindow &) const = default;
};

// A text that was typed into a note and could not be written yet.
struct UnsavedNote {
    QUuid checkpointID = {};
    QString field = {}; // As the record calls it.
    QString text = {};

    bool operator==(const UnsavedNote &) const = default;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"checkpointID", &UnsavedNote::checkpointID},
            Field{"field", &UnsavedNote::field},
            Field{"text", &UnsavedNote::text},
        };
    }
};

// What a resume wanted to open and could not.
struct ResumeShortfall {
    QUuid checkpointID = {};
    QStringList failures = {}; // Each names the application, page or document.

    bool operator==(const ResumeShortfall &) const = default;
};

// A resume that the window began and that goes on.
struct ResumeProgress {
    QUuid checkpointID = {};
    QString awaited = {}; // The application, page or window that it waits for; empty: for no single one.
    bool isStopping = false;

    bool operator==(const ResumeProgress &) const = default;
};

// A project that went to the archive or came from there.
struct Archiving {
    QUuid projectID = {};
    QString projectName = {};
    std::optional<Date> before = {}; // Since when it was archived.
    bool wasShown = false;           // On the page, with this checkpoint.
    std::optional<QUuid> shown = {};

    bool operator==(const Archiving &) const = default;
};

// Everything the interface shows, one line a property. Main thread only.
struct AppState : Messages {
    template <typename T>
    using Published = PublishedBy<T, AppStore>;

    // Library.
    Published<QList<Project>> projects;
    Published<QList<Checkpoint>> checkpoints;
    Published<Checkpoint> sampleCheckpoint;
    Published<QList<Checkpoint>> sampleHistory;

    // Selection.
    Published<std::optional<QUuid>> selectedProjectID;
    Published<std::optional<QUuid>> selection; // The checkpoint shown.
    Editable<bool> launchOverview;
    Editable<bool> showArchivedProjects;
    Editable<QString> search;

    Published<std::optional<Archiving>> lastArchiving; // Can be undone.

    // Project dialogs.
    Editable<std::optional<Project>> editingBlocker;
    Editable<std::optional<Project>> deletingProject;
    Editable<bool> showNewProject;
    Editable<std::optional<QUuid>> draftProjectID;
    Editable<QString> draftProjectName;

    // Capture form and progress.
    Editable<bool> showCapture;
    Editable<bool> showQuickCapture;
    Published<bool> busy;       // Something is captured, saved or resumed: nothing else of the kind can begin.
    Published<bool> savingForm; // That is the form's own capture; while something else is, it can be filled in.
    Published<bool> working;    // Something goes on that the end of the program waits for.
    Published<bool> recording;
    Published<std::optional<QString>> recordingFailure; // Why nothing is recorded any more, until the session ends.
    Editable<bool> pendingRecording;
    Editable<bool> includeBrowser;
    Published<std::optional<Date>> startedAt;
    Editable<QString> draftTitle;
    Editable<QString> draftNext;
    Published<std::optional<QString>> captureIssue;

    // Workspace editing.
    Published<QList<UnsavedNote>> unsavedNotes; // They are written as soon as that is possible.
    Published<std::optional<WorkspaceRemoval>> lastRemoval;
    Published<QList<QUuid>> addingPictures; // Whose image is being imported.
    Published<CaptureExclusions> exclusions;
    Published<std::optional<QString>> exclusionsIssue; // Why they could not be read; nothing is captured then.
    Editable<bool> showExclusions;
    Published<QSet<QString>> runningApplicationIDs;

    // Restore and settings.
    Editable<bool> showRestore;
    Published<std::optional<ResumeProgress>> resuming;
    Published<QList<UnplacedWindow>> unplacedWindows;          // By the last resume.
    Published<std::optional<ResumeShortfall>> resumeShortfall; // Of the last resume.
    Editable<bool> showSettings;
    Editable<int> shortcutChoice;
    Editable<std::optional<QString>> shortcutIssue; // Reported by whoever holds the shortcut.

    // Screen access.
    Published<bool> screenAccessGranted;
    Published<std::optional<QString>>
        screenAccessReason; // Why pictures cannot be taken here, whatever the user allows.
    Published<bool> requestingAccess;
    Published<bool> permissionRequestSent;
    Published<bool> restartingApp;

    // Updates and prompts.
    Published<std::optional<AppUpdateManifest>> availableUpdate;
    Published<bool> checkingForUpdates;
    Published<std::optional<QString>> updateAnswer; // What a check said that the user asked for.
    Editable<bool> showNewsletterPrompt;
};

} // namespace ardeno
