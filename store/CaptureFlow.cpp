// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"
#include "capture/WorkspaceCapture.h"
#include "store/AppStore.h"
#include "store/MediaFolders.h"
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

QCoro::Task<Outcome> AppStore::saveMoment(CaptureRequest request, Audience audience)
{
    return carryOut(capture(std::move(request), CaptureKind::Checkpoint, audience), audience);
}

QCoro::Task<Outcome> AppStore::capture(CaptureRequest request, CaptureKind kind, Audience audience)
{
    Outcome outcome{.subject = subjects::capture};
    if (busy())
        co_return outcome;
    outcome.captureIssue = exclusionsObstacle();
    if (kind == CaptureKind::Session && !outcome.captureIssue)
        outcome.captureIssue = sessionObstacle();
    if (outcome.captureIssue)
        co_return outcome;
    busy.set(true);
    const auto idle = qScopeGuard([this] { busy.set(false); });
    Checkpoint checkpoint = newCheckpoint(request);
    UnsavedMedia media(m_repository.root(), checkpoint.id);
    OwnedCheckpoint captured;
    bool isOrphan = false;
    try {
        media.create();
        co_await fill(&checkpoint, media.folder(), request.includeBrowser);
        captured = owned(checkpoint);
        isOrphan = m_isLibraryRead && !captured.project;
        if (!isOrphan && kind == CaptureKind::Session)
            co_await beginRecording(captured, &media);
    } catch (...) {
        outcome.captureIssue = tr("Capture could not finish. Your draft is safe. Check Screen Recording settings; if "
                                  "access was just enabled, quit and reopen this app, then try again. ") +
                               Failure::current().description();
        co_return outcome;
    }
    if (isOrphan) { // Nobody makes another project for it.
        outcome.captureIssue = tr("The project was deleted meanwhile, so nothing was saved. Your draft is safe.");
        co_return outcome;
    }
    finishCapture(captured, kind, audience, &media, &outcome);
    co_return outcome;
}

// What was captured goes into the library, or is being recorded by now.
void AppStore::finishCapture(const OwnedCheckpoint &captured, CaptureKind kind, Audience audience, UnsavedMedia *media,
                             Outcome *outcome)
{
    const SettleMedia settle = [media] {
        media->keep(); // Whatever becomes of the folder's name.
        media->adopt();
    };
    if (kind == CaptureKind::Session) {
        if (!recordingFailure()) // It may have broken off already.
            outcome->notice = tr("Recording your main display. Stop any time from the menu bar.");
    } else if (write(captured, outcome, settle)) {
        outcome->notice = tr("Checkpoint saved.");
        if (audience == Audience::Window)
            show(captured.checkpoint);
    } else {
        return;
    }
    outcome->isDone = true;
    outcome->id = captured.checkpoint.id;
}

// The media go into that folder; the checkpoint names them where they will be. What was collected under rules that have
// changed meanwhile is collected anew: the rules that are shown are those that hold.
QCoro::Task<void> AppStore::fill(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits)
{
    CaptureExclusions rules;
    do {
        rules = exclusions();
        co_await collect(checkpoint, mediaFolder, withTabs, limits);
    } while (rules != exclusions());
}

QCoro::Task<void> AppStore::collect(Checkpoint *checkpoint, QString mediaFolder, bool withTabs, QString *limits)
{
    const QSet<QString> excluded = exclusions().appIDs();
    m_desktop.screenCapture->prepareExclusion(excluded);
    checkpoint->apps = WorkspaceCapture::applications(*m_desktop.workspace, m_desktop.roles, excluded);
    checkpoint->tabs.clear();
    checkpoint->captureNote = u"Open apps captured. Browser capture was off."_qs;
    // What windows and browsers show is read while the picture is taken.
    const QCoro::Task<WindowLayout::Captured> looking =
        WindowLayout::capture(checkpoint->apps, m_desktop, exclusions(), QCoreApplication::applicationPid());
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
    const QSet<QString> unread = exclusions().appIDs();
    WorkspaceCapture::OpenTabs open = co_await WorkspaceCapture::browserTabs(*m_desktop.tabSource, unread);
    open.tabs.removeIf([this](const SavedTab &tab) { return !exclusions().allows(tab); }); // As they are by now.
    co_return open;
}

Outcome AppStore::save(Checkpoint checkpoint)
{
    Outcome outcome{.id = checkpoint.id, .subject = subjects::about("save", checkpoint.id)};
    const PublishTogether group;
    outcome.isDone = !checkpoint.isSample && write(owned(checkpoint), &outcome);
    if (outcome)
        show(checkpoint);
    return concluded(std::move(outcome));
}

AppStore::OwnedCheckpoint AppStore::owned(const Checkpoint &checkpoint) const
{
    const Project *const known = checkpoint.projectID ? project(*checkpoint.projectID) : nullptr;
    return {checkpoint, known ? std::optional(*known) : std::nullopt};
}

// In the place of the one with its identifier, or as a new one.
bool AppStore::write(OwnedCheckpoint saved, Outcome *outcome, const SettleMedia &settle)
{
    Checkpoint &checkpoint = saved.checkpoint;
    const auto put = [&](WorkspaceLibrary &library) {
        if (saved.project)
            checkpoint.projectID = ProjectOrder::adopt(&library.projects, *saved.project);
        const auto same = std::find_if(library.checkpoints.begin(), library.checkpoints.end(),
                                       [&](const Checkpoint &existing) { return existing.id == checkpoint.id; });
        if (same == library.checkpoints.end())
            library.checkpoints.prepend(checkpoint);
        else
            *same = checkpoint;
        return true;
    };
    return commit(put, tr("Could not save this checkpoint: "), outcome, settle);
}

// Which has just been written; the library may have given it another project.
void AppStore::show(const Checkpoint &saved)
{
    const PublishTogether group;
    setSelectedProjectID(checkpoint(saved.id)->projectID);
    showArchivedProjects.set(selectedProject() && selectedProject()->archivedAt); // The list that the project is in.
    setSelection(saved.id);
}

} // namespace ardeno
