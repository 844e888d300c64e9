// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/Applications.h"
#include "store/CaptureFlow.h"
#include "store/CaptureSetup.h"
#include "store/CheckpointEditing.h"
#include "store/Deletion.h"
#include "store/FormCapture.h"
#include "store/KeptCopies.h"
#include "store/Newsletter.h"
#include "store/QuickSaveShortcut.h"
#include "store/ResumeFlow.h"
#include "store/ScreenshotEditing.h"
#include "store/SessionFlow.h"
#include "store/StoreParts.h"
#include "store/UnsavedSessions.h"
#include "store/Updates.h"
#include "store/WorkspaceEditing.h"

namespace ardeno {

// Creates the objects of the application's state and connects them: what a user can do, each with what the interface
// shows of it. Each knows only some of those above it. Operations tell how they ended by their Outcome; the window
// shows it by the messages, unless the caller says what went wrong itself. An operation that is refused because another
// one is under way has no outcome. Changes take what they are about by value, since callers often have it from the
// lists that a change replaces.
class AppStore final {
public:
    // Reads the settings and the library; a library that cannot be read is left in place and named in error. The
    // desktop outlives the store.
    explicit AppStore(Desktop &desktop, StoreParts parts = {});
    ~AppStore();
    AppStore(const AppStore &) = delete;
    AppStore &operator=(const AppStore &) = delete;

private:
    Preferences m_preferences;

public:
    Messages messages;

private:
    KeptCopies m_keptCopies;
    UnsavedSessions m_unsavedSessions;

public:
    Library library;
    CheckpointMedia media;
    Navigation navigation;
    Operations operations;

private:
    CaptureService m_capture;

public:
    SessionRecorder recorder;
    ExclusionRules rules;
    Applications applications;

private:
    WorkspaceCollector m_collector;

public:
    RemovalUndo removals;
    CheckpointEditing editing;
    ScreenshotEditing screenshots;
    WorkspaceEditing workspace;
    CaptureDrafts drafts;
    OpenSheets sheets;
    ProjectOperations projects;
    Deletion deletion;
    CaptureFlow capture;
    ScreenAccessFlow screenAccess;
    CaptureSetup setup;
    Newsletter newsletter;
    FormCapture form;

private:
    SessionEnd m_sessionEnd;

public:
    SessionFlow sessions;
    ResumeFlow resumes;
    Updates updates;
    QuickSaveShortcut shortcut;

private:
    void start(const StoreParts &parts);
    void libraryReplaced();
    void forgetProject(const QUuid &id);
    void showSession(const Checkpoint &saved);
};

} // namespace ardeno
