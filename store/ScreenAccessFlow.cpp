// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/ScreenAccessFlow.h"

#include "store/Operations.h"

#include <utility>

namespace ardeno {

namespace {

QCoro::Task<qint64> startNothing()
{
    throw Failure("Restart", 3, "This program cannot start itself.");
    co_return 0;
}

} // namespace

ScreenAccessFlow::ScreenAccessFlow(Parts parts, Actions actions) : m_parts(parts), m_actions(std::move(actions))
{
    if (!m_actions.check)
        m_actions.check = [this] { return m_parts.desktop.screenAccess->check(); };
    if (!m_actions.ask)
        m_actions.ask = [this] { return m_parts.desktop.screenAccess->ask(); };
    if (!m_actions.verify)
        m_actions.verify = [this] { return m_parts.capture.verifyAccess(); };
    if (!m_actions.startInstance)
        m_actions.startInstance = startNothing;
    if (!m_actions.endApplication)
        m_actions.endApplication = [] { QCoreApplication::quit(); };
}

void ScreenAccessFlow::refreshScreenAccess()
{
    const bool isGranted = m_actions.check();
    const Capability access = m_parts.desktop.screenAccess->availability();
    const bool isHopeless = !isGranted && access.state == Capability::State::Unavailable;
    const PublishTogether group;
    screenAccessGranted.set(isGranted);
    screenAccessReason.set(isHopeless ? std::optional(access.reason) : std::nullopt);
    if (isGranted)
        m_parts.messages.setCaptureIssue(std::nullopt);
}

void ScreenAccessFlow::requestScreenAccess()
{
    if (requestingAccess() || restartingApp() || permissionRequestSent())
        return;
    permissionRequestSent.set(true);
    // The system may end this process when the user consents.
    m_parts.drafts.keepForRestart();
    requestingAccess.set(true);
    const bool isGranted = m_actions.ask() || m_actions.check();
    screenAccessGranted.set(isGranted);
    requestingAccess.set(false);
    if (!isGranted)
        m_parts.messages.setCaptureIssue(
            tr("Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit "
               "and reopen, your draft will be waiting."));
}

QCoro::Task<void> ScreenAccessFlow::verifyAccessNow()
{
    if (restartingApp() || requestingAccess())
        co_return;
    refreshScreenAccess();
    if (!screenAccessGranted()) {
        m_parts.messages.setCaptureIssue(
            tr("Access is not active for this copy yet. Check Settings, then restart this app if macOS "
               "asks. This check does not request permission."));
        co_return;
    }
    try { // What the system says and what it does are two things.
        co_await m_actions.verify();
    } catch (...) {
        screenAccessGranted.set(false);
        m_parts.messages.setCaptureIssue(Failure::current().description());
    }
}

void ScreenAccessFlow::openScreenSettings()
{
    if (!m_parts.desktop.screenAccess->openSettings())
        m_parts.messages.setCaptureIssue(tr("This desktop has no settings for screen access."));
}

QCoro::Task<void> ScreenAccessFlow::restartForPermission()
{
    // What is being saved or recorded would be lost.
    if (restartingApp() || m_parts.operations.working() || m_parts.recorder.recording())
        co_return;
    const bool hadPanel = m_parts.sheets.showQuickCapture();
    QString problem;
    restartingApp.set(true);
    try {
        co_await startSuccessor();
    } catch (...) {
        problem = Failure::current().description();
    }
    if (problem.isEmpty()) {
        m_actions.endApplication();
        co_return;
    }
    const PublishTogether group;
    m_parts.messages.setCaptureIssue(
        tr("Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app "
           "again. Your draft is saved. ") +
        problem);
    restartingApp.set(false);
    m_parts.sheets.open(hadPanel ? &OpenSheets::showQuickCapture : &OpenSheets::showCapture); // Where the message is.
}

QCoro::Task<void> ScreenAccessFlow::startSuccessor()
{
    m_parts.drafts.keepForRestart();
    if (!m_parts.preferences.synchronise())
        throw Failure("Restart", 2, tr("The settings cannot be written."));
    m_parts.sheets.closeAll();
    const qint64 process = co_await m_actions.startInstance();
    if (process == QCoreApplication::applicationPid())
        throw Failure("Restart", 1, tr("macOS reopened the existing process."));
}

} // namespace ardeno
