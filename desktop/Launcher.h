// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "model/WorkspaceRecords.h"

#include <QCoroTask>
#include <QList>
#include <QString>
#include <QStringList>

namespace ardeno {

// A saved tab on its way back into the window it came from.
struct TabToReopen {
    SavedTab tab = {};
    QString address = {}; // The one to open; http or https.
    QString script = {};  // What a desktop with scripting runs for it.
};

// The window of a browser that tabs were saved from.
struct SavedBrowserWindow {
    enum class State {
        Open,    // It is there.
        Missing, // It is certainly not there.
        Unknown,
    };
    State state = State::Unknown;
    quint32 windowID = 0; // The window server's number; 0 unless it is there.

    bool operator==(const SavedBrowserWindow &) const = default;
};

// Where pages go.
enum class PagePlace { LastWindow, NewWindow };

// An application that ended with an error instead of showing what it was opened with.
struct FailedStart {
    QString appID = {};
    QString appName = {};
    QStringList contents = {}; // The paths or addresses that it was given; empty: it was to start by itself.

    bool operator==(const FailedStart &) const = default;
};

// Opens applications, pages, folders and documents, none of them in front of what the user works with. What it starts
// lives on after this program and inherits nothing of it.
class Launcher {
public:
    virtual ~Launcher() = default;

    virtual Capability availability() const = 0;
    // Whether the application can be opened by its identifier.
    virtual bool isInstalled(const QString &appID) = 0;
    // With these files and folders, each in a window of its own where the application can be asked for one, or as it
    // starts by itself. Throws Failure.
    virtual QCoro::Task<void> openApplication(QString appID, QStringList paths) = 0;
    // Files and folders with the application that the user has chosen for their kind. Throws Failure.
    virtual QCoro::Task<void> openPath(QString path) = 0;
    // Shows folders, or files in their folders, in the desktop session's file browser. Throws Failure.
    virtual QCoro::Task<void> reveal(QString path) = 0;
    // Pages with a browser, or with the default one when there is no identifier; in a window of their own where the
    // browser can be asked for one, which is there when this returns. Throws Failure.
    virtual QCoro::Task<void> openPages(QString appID, QStringList addresses, PagePlace place) = 0;
    // What has become of the window that the tab was saved from; `saved` are all tabs saved from its browser. It is the
    // one with the browser's own identifier, else the one with most of the same pages, else the one with its number.
    // Never throws.
    virtual QCoro::Task<SavedBrowserWindow> findSavedWindow(SavedTab tab, QList<SavedTab> saved) = 0;
    // The tabs were saved from one window of one browser, which is this one. False, and nothing opened, when they could
    // not be opened there.
    virtual QCoro::Task<bool> openInSavedWindow(quint32 windowID, QList<TabToReopen> tabs) = 0;
    // Whether what was opened with this application has yet to show its window, or to hand over to one that is there.
    virtual bool isStarting(const QString &appID) const = 0;
    // The focus stays with the user from the first that is opened until this returns: it waits until what was started
    // has settled, at most some seconds, and gives what failed meanwhile.
    virtual QCoro::Task<QList<FailedStart>> settle() = 0;
};

} // namespace ardeno
