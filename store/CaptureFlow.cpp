// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"
#include "capture/WorkspaceCapture.h"
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/PreferenceKeys.h"
#include "store/ProjectOrder.h"
#include "store/Subjects.h"

#include <QScopeGuard>

#include <algorithm>
#include <exception>

namespace ardeno {

namespace {

Checkpoint newCheckpoint(const CaptureRequest &request)
{
    Checkpoint checkpoint;
    const QString title = request.title.trimmed();
    checkpoint.title = title.isEmpty() ? u"Checkpoint · "_qs + DateText::shortTime(checkpoint.createdAt) : title;
    checkpoint.nextStep = request.next.trimmed();
    checkpoint.projectID = request.projectID;
    return checkpoint;
}

} // namespace

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

QCoro::Task<Outcome> AppStore::captureMoment(QString title, QString next, CaptureKind kind)
{
    return carryOut(captureForm(std::move(title), std::move(next), kind));
}

QCoro::Task<Outcome> AppStore::captureForm(QString title, QString next, CaptureKind kind)
{
    Outcome outcome{.subject = subjects::capture};
    if (busy())
        co_return outcome;
    draftTitle.set(title.trimmed());
    draftNext.set(next.trimmed());
    m_preferences.setValue(keys::captureDraftRecording, kind == CaptureKind::Session);
    refreshScreenAccess();
    if (!screenAccessGranted()) {
        outcome.captureIssue = screenAccessReason().value_or(
            tr("Screen access needs to be set up before saving. Use Allow screen access once, then finish in System "
               "Settings. Your draft is saved."));
        co_return outcome;
    }
    if (kind == CaptureKind::Session)
        outcome.captureIssue = sessionObstacle();
    const std::optional<QUuid> projectID = outcome.captureIssue ? std::nullopt : draftProject(&outcome);
    if (!projectID)
        co_return outcome;
    const CaptureRequest request{*projectID, draftTitle(), draftNext(), includeBrowser()};
    outcome = co_await capture(request, kind);
    if (!outcome)
        co_return outcome;
    finishForm();
    if (kind == CaptureKind::Checkpoint)
        considerNewsletter();
    co_return outcome;
}

QCoro::Task<Outcome> AppStore::saveMoment(CaptureRequest request, Audience audience)
{
    return carryOut(capture(std::move(request), CaptureKind::Checkpoint), audience);
}

std::optional<QUuid> AppStore::draftProject(Outcome *outcome)
{
    const QList<Project> available = availableProjects();
    const auto isDraft = [this](const Project &project) { return project.id == draftProjectID(); };
    if (std::any_of(available.begin(), available.end(), isDraft))
        return draftProjectID();
    if (draftProjectName().trimmed().isEmpty()) {
        outcome->fail(tr("Choose a project or enter a new project name before saving."));
        return std::nullopt;
    }
    const Outcome created = createProject(draftProjectName(), Audience::Caller);
    if (created)
        draftProjectID.set(created.id);
    else if (created.error)
        outcome->fail(*created.error);
    return created.id;
}

QCoro::Task<Outcome> AppStore::capture(CaptureRequest request, CaptureKind kind)
{
    Outcome outcome{.subject = subjects::capture};
    if (busy())
        co_return outcome;
    if (kind == CaptureKind::Session)
        outcome.captureIssue = sessionObstacle();
    if (outcome.captureIssue)
        co_return outcome;
    busy.set(true);
    const auto idle = qScopeGuard([this] { busy.set(false); });
    Checkpoint checkpoint = newCheckpoint(request);
    const QUuid id = checkpoint.id;
    UnsavedMedia media(m_repository.root(), id);
    try {
        media.create();
        co_await fill(&checkpoint, media.folder(), request.includeBrowser);
        if (kind == CaptureKind::Session)
            co_await beginRecording(&checkpoint, &media);
    } catch (...) {
        outcome.captureIssue = tr("Capture could not finish. Your draft is safe. Check Screen Recording settings; if "
                                  "access was just enabled, quit and reopen this app, then try again. ") +
                               Failure::current().description();
        co_return outcome;
    }
    const SettleMedia settle = [&media] {
        media.keep(); // Whatever becomes of the folder's name.
        media.adopt();
    };
    if (kind == CaptureKind::Session)
        outcome.notice = tr("Recording your main display. Stop any time from the menu bar.");
    else if (write(checkpoint, &outcome, settle))
        outcome.notice = tr("Checkpoint saved.");
    else
        co_return outcome;
    outcome.isDone = true;
    outcome.id = id;
    co_return outcome;
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

Outcome AppStore::save(Checkpoint checkpoint)
{
    Outcome outcome{.id = checkpoint.id, .subject = subjects::about("save", checkpoint.id)};
    outcome.isDone = !checkpoint.isSample && write(checkpoint, &outcome);
    return concluded(std::move(outcome));
}

// In the place of the one with its identifier, or as a new one, and then shown.
bool AppStore::write(Checkpoint checkpoint, Outcome *outcome, const SettleMedia &settle)
{
    const Project *const known = checkpoint.projectID ? project(*checkpoint.projectID) : nullptr;
    const std::optional<Project> owner = known ? std::optional(*known) : std::nullopt;
    const auto put = [&](WorkspaceLibrary &library) {
        if (owner) // Another program's library may not have it.
            checkpoint.projectID = ProjectOrder::adopt(&library.projects, *owner);
        const auto same = std::find_if(library.checkpoints.begin(), library.checkpoints.end(),
                                       [&](const Checkpoint &existing) { return existing.id == checkpoint.id; });
        if (same == library.checkpoints.end())
            library.checkpoints.prepend(checkpoint);
        else
            *same = checkpoint;
        return true;
    };
    if (!commit(put, tr("Could not save this checkpoint: "), outcome, settle))
        return false;
    const PublishTogether group;
    setSelectedProjectID(this->checkpoint(checkpoint.id)->projectID);
    showArchivedProjects.set(selectedProject() && selectedProject()->archivedAt); // The list that the project is in.
    selection.set(checkpoint.id);
    return true;
}

} // namespace ardeno
