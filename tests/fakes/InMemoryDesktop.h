// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QHash>

#include <functional>

namespace ardeno::fakes {

// A desktop in memory: tests set what it holds and read what it was asked. The interfaces refer to this value, which
// outlives them.
struct InMemoryDesktop {
    QList<RunningApplication> running = {};
    QList<InstalledApplication> installed = {};
    QSet<QString> programsRunning = {};          // Applications with processes, with windows or without.
    QSet<QString> excludedAppIDs = {};           // As the desktop was told last.
    QHash<QString, ApplicationMarks> marks = {}; // Of the applications of which anything is known.
    QList<ApplicationMarks> marksTold = {};
    std::function<void()> applicationsChanged = {}; // To be called by the test; empty: nobody wants to know.
    QList<Display> displays = {};
    QList<QString> virtualDesktops = {};
    QList<WindowInfo> windows = {};
    BrowserWindows browserWindows = {};
    QHash<QString, QString> tabRecords = {}; // Of each running browser; a null text: it cannot be read.
    QStringList browsersRead = {};
    bool screenAccess = true;
    bool consentOnAsking = false;
    int timesAsked = 0;
    std::optional<QString> noScreenAccess = {}; // Why consent would not help.
    int timesSettingsOpened = 0;
    std::optional<Failure> pictureFailure = {};
    int missingBytes = 0;                      // Of each picture.
    std::function<void()> whileComposing = {}; // Called in the middle of a picture.
    QList<QSet<QString>> preparedExclusions = {};
    QList<CanvasRequest> requests = {};
    Capability moving = Capability::available();
    QList<MovableWindow> movable = {};
    UserInput input = {};
    QList<WindowMove> moves = {};                // Carried out, unless the window refuses.
    QHash<quint32, MoveResult> moveResults = {}; // Of windows that do not simply obey.
    QStringList opened =
        {}; // "app ID PATH…", "page ID ADDRESS…", "new ID ADDRESS…", "window NUMBER ADDRESS…", "path PATH", …
    QHash<QString, QString> openFailures = {}; // Why an application or the default browser ("") cannot be opened.
    QHash<qint64, SavedBrowserWindow> savedWindows = {}; // By the number that was saved.
    qsizetype savedPagesTold = 0;                        // With the last question for such a window.
    QList<FailedStart> failedStarts = {};                // Told when what was opened has settled.
    QSet<QString> starting = {}; // Applications that have yet to show what they were opened for.
    std::function<void(const QString &)> whenOpened = {}; // Called with each entry of opened.
    QList<RecordingRequest> recordings = {};              // As they were asked for.
    RecordingEvents recordingEvents = {};                 // Of the last one, for what a test lets happen to it.
    Capability recorder = Capability::available();
    std::optional<Failure> recordingFailure = {};  // Of the next start.
    std::function<void()> whileStarting = {};      // Called in the middle of a recording's start.
    std::function<void()> whenStopped = {};        // Instead of the file being finished when the recording is stopped.
    QList<WindowLocation> folders = {};            // What windows of file browsers show.
    QList<WindowLocation> documents = {};          // What windows of other applications show; each has a process.
    QSet<QString> heldPaths = {};                  // Open, but no window shows them in front.
    QSet<QString> silentPaths = {};                // On disks that do not answer.
    QList<QSet<qint64>> processesAskedAbout = {};  // By each question for documents.
    std::optional<HotKeys::Combination> keys = {}; // Those that are listened to.
    HotKeys::Listener keyListener = {};
    bool areKeysTaken = false;      // By another program.
    QStringList focusRequests = {}; // "front", "above", "remember", "return", as they were made.
    bool hasMailProgram = true;
    QList<QUrl> mailDrafts = {}; // What the mail program was asked to open.

    InMemoryDesktop() = default;
    InMemoryDesktop(const InMemoryDesktop &) = delete;
    InMemoryDesktop &operator=(const InMemoryDesktop &) = delete;

    // Adds an application with one window on the first display.
    void addApplication(const QString &id, const QString &name, const WindowRect &frame, const QString &title = {});
    void addDisplay(quint32 id, const WindowRect &bounds);

    Desktop makeDesktop();
};

} // namespace ardeno::fakes
