// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/PreferenceKeys.h"

#include <exception>

namespace ardeno {

void AppStore::refreshScreenAccess()
{
    const bool isGranted = m_checkScreenAccess();
    const Capability access = m_desktop.screenAccess->availability();
    const bool isHopeless = !isGranted && access.state == Capability::State::Unavailable;
    const PublishTogether group;
    screenAccessGranted.set(isGranted);
    screenAccessReason.set(isHopeless ? std::optional(access.reason) : std::nullopt);
    if (isGranted)
        captureIssue.set(std::nullopt);
}

void AppStore::requestScreenAccess()
{
    if (requestingAccess() || restartingApp() || permissionRequestSent())
        return;
    permissionRequestSent.set(true);
    // The system may end this process when the user consents.
    m_preferences.setValue(keys::resumeCaptureSetup, true);
    m_preferences.setValue(keys::captureDraftRecording, pendingRecording());
    requestingAccess.set(true);
    const bool isGranted = m_askScreenAccess() || m_checkScreenAccess();
    screenAccessGranted.set(isGranted);
    requestingAccess.set(false);
    if (!isGranted)
        captureIssue.set(tr("Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit "
                            "and reopen, your draft will be waiting."));
}

QCoro::Task<void> AppStore::verifyAccessNow()
{
    if (restartingApp() || requestingAccess())
        co_return;
    refreshScreenAccess();
    if (!screenAccessGranted()) {
        captureIssue.set(tr("Access is not active for this copy yet. Check Settings, then restart this app if macOS "
                            "asks. This check does not request permission."));
        co_return;
    }
    try { // What the system says and what it does are two things.
        co_await m_verifyScreenAccess();
    } catch (...) {
        screenAccessGranted.set(false);
        captureIssue.set(Failure::current().description());
    }
}

void AppStore::openScreenSettings()
{
    if (!m_desktop.screenAccess->openSettings())
        captureIssue.set(tr("This desktop has no settings for screen access."));
}

void AppStore::endSheets()
{
    const PublishTogether group;
    for (Editable<bool> *const flag :
         {&showCapture, &showQuickCapture, &showRestore, &showSettings, &showNewProject, &showExclusions})
        flag->set(false);
    editingBlocker.set(std::nullopt);
    deletingProject.set(std::nullopt);
}

QCoro::Task<void> AppStore::restartForPermission()
{
    // What is being saved or recorded would be lost.
    if (restartingApp() || working() || recording())
        co_return;
    const bool hadPanel = showQuickCapture();
    QString problem;
    restartingApp.set(true);
    try {
        co_await startSuccessor();
    } catch (...) {
        problem = Failure::current().description();
    }
    if (problem.isEmpty()) {
        m_endApplication();
        co_return;
    }
    const PublishTogether group;
    captureIssue.set(tr("Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app "
                        "again. Your draft is saved. ") +
                     problem);
    restartingApp.set(false);
    (hadPanel ? showQuickCapture : showCapture).set(true); // Where the message is.
}

QCoro::Task<void> AppStore::startSuccessor()
{
    m_preferences.setValue(keys::resumeCaptureSetup, true);
    m_preferences.setValue(keys::captureDraftRecording, pendingRecording());
    if (!m_preferences.synchronise())
        throw Failure("Restart", 2, tr("The settings cannot be written."));
    endSheets();
    const qint64 process = co_await m_startInstance();
    if (process == QCoreApplication::applicationPid())
        throw Failure("Restart", 1, tr("macOS reopened the existing process."));
}

} // namespace ardeno
