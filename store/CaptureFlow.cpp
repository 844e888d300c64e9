// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"
#include "capture/WorkspaceCapture.h"
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/PreferenceKeys.h"

#include <QScopeGuard>

#include <algorithm>
#include <exception>

namespace ardeno {

void AppStore::requestCapture(CaptureKind kind, CaptureForm form)
{
    const auto isAvailable = [this](const std::optional<QUuid> &id) {
        const Project *const found = id ? project(*id) : nullptr;
        return found && !found->archivedAt;
    };
    if (!isAvailable(draftProjectID())) {
        const QUuid last(m_preferences.value(keys::lastOpenedProjectID).value_or(QString()));
        draftProjectID.set(isAvailable(last) ? std::optional(last) : std::nullopt);
    }
    pendingRecording.set(kind == CaptureKind::Session);
    m_preferences.setValue(keys::captureDraftRecording, pendingRecording());
    refreshScreenAccess();
    (form == CaptureForm::QuickPanel ? showQuickCapture : showCapture).set(true);
}

void AppStore::cancelCapture()
{
    const PublishTogether group;
    showCapture.set(false);
    showQuickCapture.set(false);
    captureIssue.set(std::nullopt);
    m_preferences.setValue(keys::resumeCaptureSetup, false);
}

QCoro::Task<void> AppStore::captureMoment(QString title, QString next, CaptureKind kind)
{
    if (busy())
        co_return;
    clearMessages();
    draftTitle.set(title.trimmed());
    draftNext.set(next.trimmed());
    m_preferences.setValue(keys::captureDraftRecording, kind == CaptureKind::Session);
    refreshScreenAccess();
    if (!screenAccessGranted()) {
        captureIssue.set(screenAccessReason().value_or(
            tr("Screen access needs to be set up before saving. Use Allow screen access once, then finish in System "
               "Settings. Your draft is saved.")));
        co_return;
    }
    if (kind == CaptureKind::Session && refuseSession())
        co_return;
    const std::optional<QUuid> projectID = draftProject();
    if (!projectID)
        co_return;
    const CaptureRequest request{*projectID, draftTitle(), draftNext(), includeBrowser()};
    if (!co_await capture(request, kind))
        co_return;
    finishForm();
    if (kind == CaptureKind::Checkpoint)
        considerNewsletter();
}

QCoro::Task<std::optional<QUuid>> AppStore::saveMoment(CaptureRequest request)
{
    if (busy())
        co_return std::nullopt;
    clearMessages();
    captureIssue.set(std::nullopt);
    request.title = request.title.trimmed();
    request.next = request.next.trimmed();
    co_return co_await capture(request, CaptureKind::Checkpoint);
}

std::optional<QUuid> AppStore::draftProject()
{
    const QList<Project> available = availableProjects();
    const auto isDraft = [this](const Project &project) { return project.id == draftProjectID(); };
    if (std::any_of(available.begin(), available.end(), isDraft))
        return draftProjectID();
    if (draftProjectName().trimmed().isEmpty()) {
        error.set(tr("Choose a project or enter a new project name before saving."));
        return std::nullopt;
    }
    const std::optional<QUuid> created = createProject(draftProjectName());
    if (created)
        draftProjectID.set(created);
    return created;
}

QCoro::Task<std::optional<QUuid>> AppStore::capture(CaptureRequest request, CaptureKind kind)
{
    busy.set(true);
    const auto idle = qScopeGuard([this] { busy.set(false); });
    Checkpoint checkpoint;
    checkpoint.title =
        request.title.isEmpty() ? u"Checkpoint · "_qs + DateText::shortTime(checkpoint.createdAt) : request.title;
    checkpoint.nextStep = request.next;
    checkpoint.projectID = request.projectID;
    const QUuid id = checkpoint.id;
    UnsavedMedia media(m_repository.root(), id);
    try {
        media.create();
        co_await fill(&checkpoint, media.folder(), request.includeBrowser);
        if (kind == CaptureKind::Session)
            co_await beginRecording(&checkpoint, &media);
    } catch (const Failure &failure) {
        captureIssue.set(tr("Capture could not finish. Your draft is safe. Check Screen Recording settings; if access "
                            "was just enabled, quit and reopen this app, then try again. ") +
                         failure.description());
        co_return std::nullopt;
    }
    if (kind == CaptureKind::Checkpoint) {
        const SettleMedia settle = [&media] {
            media.keep(); // Whatever becomes of the folder's name.
            media.adopt();
        };
        if (!save(checkpoint, settle))
            co_return std::nullopt;
        notice.set(tr("Checkpoint saved."));
    }
    co_return id;
}

// The media go into that folder; the checkpoint names them where they will be.
QCoro::Task<void> AppStore::fill(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits)
{
    const QSet<QString> excluded = exclusions().appIDs();
    m_desktop.screenCapture->prepareExclusion(excluded);
    checkpoint->apps = WorkspaceCapture::applications(*m_desktop.workspace, m_desktop.roles, excluded);
    checkpoint->captureNote = u"Open apps captured. Browser capture was off."_qs;
    // What windows and browsers show is read while the picture is taken.
    const QCoro::Task<WindowLayout::Captured> looking =
        WindowLayout::capture(checkpoint->apps, m_desktop, QCoreApplication::applicationPid());
    std::optional<QCoro::Task<WorkspaceCapture::OpenTabs>> reading;
    if (withTabs)
        reading = capturedTabs();
    std::exception_ptr failure;
    try {
        co_await takePicture(checkpoint, mediaFolder);
    } catch (...) {
        failure = std::current_exception(); // What is being read is awaited all the same.
    }
    const WindowLayout::Captured seen = co_await looking;
    checkpoint->windows = seen.windows;
    QString unread;
    if (reading) {
        const WorkspaceCapture::OpenTabs open = co_await *reading;
        checkpoint->tabs = open.tabs;
        checkpoint->captureNote = open.warning.value_or(u"Browser tabs and open apps captured."_qs);
        if (!open.unreadBrowserNames.isEmpty())
            unread = ' ' + *open.warning;
    }
    const QString missing = WorkspaceCapture::limits(checkpoint->apps, seen.outOfSight);
    checkpoint->captureNote += missing;
    if (limits)
        *limits = unread + missing;
    if (failure)
        std::rethrow_exception(failure);
}

QCoro::Task<void> AppStore::takePicture(Checkpoint *checkpoint, QString mediaFolder)
{
    const QString name = '/' + QString(MediaFile::screenshot);
    co_await m_capture.screenshot(mediaFolder + name, exclusions().appIDs());
    checkpoint->screenshot = MediaFolders::own(m_repository.root(), checkpoint->id) + name;
}

QCoro::Task<WorkspaceCapture::OpenTabs> AppStore::capturedTabs()
{
    const CaptureExclusions rules = exclusions();
    WorkspaceCapture::OpenTabs open = co_await WorkspaceCapture::browserTabs(*m_desktop.tabSource, rules.appIDs());
    open.tabs.removeIf([&](const SavedTab &tab) { return !rules.allows(tab); });
    co_return open;
}

void AppStore::finishForm()
{
    const PublishTogether group;
    draftTitle.set({});
    draftNext.set({});
    m_preferences.setValue(keys::captureDraftRecording, false);
    m_preferences.setValue(keys::resumeCaptureSetup, false);
    showCapture.set(false);
    showQuickCapture.set(false);
}

void AppStore::considerNewsletter()
{
    if (!m_preferences.value(keys::newsletterPromptDismissed).value_or(false))
        showNewsletterPrompt.set(true);
}

bool AppStore::save(Checkpoint checkpoint, const SettleMedia &settle)
{
    clearMessages();
    if (checkpoint.isSample)
        return false;
    const QUuid id = checkpoint.id;
    if (!write(std::move(checkpoint), tr("Could not save this checkpoint: "), settle))
        return false;
    const PublishTogether group;
    setSelectedProjectID(this->checkpoint(id)->projectID);
    selection.set(id);
    return true;
}

// In the place of the one with its identifier, or as a new one.
bool AppStore::write(Checkpoint checkpoint, const QString &failurePrefix, const SettleMedia &settle)
{
    const QUuid id = checkpoint.id;
    WorkspaceLibrary changed = library();
    const auto same = std::find_if(changed.checkpoints.begin(), changed.checkpoints.end(),
                                   [&](const Checkpoint &existing) { return existing.id == id; });
    if (same == changed.checkpoints.end())
        changed.checkpoints.prepend(std::move(checkpoint));
    else
        *same = std::move(checkpoint);
    return commit(std::move(changed), failurePrefix, settle);
}

} // namespace ardeno
