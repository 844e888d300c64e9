// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/CaptureDrafts.h"
#include "store/OpenSheets.h"
#include "store/SessionRecorder.h"

namespace ardeno {

class Operations;

// Access to the screen, as known from the last look; what is wrong with it is told by captureIssue.
class ScreenAccessFlow final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::ScreenAccessFlow)

public:
    template <typename T>
    using Published = PublishedBy<T, ScreenAccessFlow>;

    Published<bool> screenAccessGranted;
    Published<std::optional<QString>> screenAccessReason; // Why there are no pictures here, whatever the user allows.
    Published<bool> requestingAccess;
    Published<bool> permissionRequestSent;
    Published<bool> restartingApp;

    // Those that are empty are the desktop's own.
    struct Actions {
        std::function<bool()> check = {};
        std::function<bool()> ask = {};
        std::function<QCoro::Task<void>()> verify = {};
        // Starts this application once more and gives the new process's identifier; throws Failure.
        std::function<QCoro::Task<qint64>()> startInstance = {};
        std::function<void()> endApplication = {};
    };

    struct Parts {
        Desktop &desktop;
        CaptureService &capture;
        Messages &messages;
        Preferences &preferences;
        CaptureDrafts &drafts;
        OpenSheets &sheets;
        const Operations &operations;
        const SessionRecorder &recorder;
    };

    ScreenAccessFlow(Parts parts, Actions actions);

    void refreshScreenAccess();
    // Asks the user, once in a run of the program.
    void requestScreenAccess();
    // Looks again without asking, also whether a picture can really be taken.
    QCoro::Task<void> verifyAccessNow();
    // Shows where the user gives the consent.
    void openScreenSettings();
    // Replaces this process by a new one, which opens the form with its drafts.
    QCoro::Task<void> restartForPermission();

private:
    QCoro::Task<void> startSuccessor();

    Parts m_parts;
    Actions m_actions;
};

} // namespace ardeno
