// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/SessionJournal.h"

#include <QFile>
#include <QScopeGuard>

namespace ardeno {

namespace {

// The description of a failure as a part of a longer sentence.
QString withoutFullStop(QString sentence)
{
    if (sentence.endsWith('.'))
        sentence.chop(1);
    return sentence;
}

} // namespace

QCoro::Task<std::optional<QUuid>> AppStore::startSession(CaptureRequest request)
{
    if (busy())
        co_return std::nullopt;
    clearMessages();
    captureIssue.set(std::nullopt);
    if (refuseSession())
        co_return std::nullopt;
    request.title = request.title.trimmed();
    request.next = request.next.trimmed();
    co_return co_await capture(request, CaptureKind::Session);
}

bool AppStore::refuseSession()
{
    const Capability recorder = m_desktop.screenRecorder->availability();
    if (recording())
        captureIssue.set(tr("A work session is being recorded already. Stop it before you start another one."));
    else if (!recorder.isAvailable())
        captureIssue.set(recorder.reason);
    return captureIssue().has_value();
}

// From here on the session outlives the program: what was captured so far lies beside the video that begins now.
QCoro::Task<void> AppStore::beginRecording(Checkpoint *checkpoint, UnsavedMedia *media)
{
    const QString video = MediaFolders::own(m_repository.root(), checkpoint->id) + '/' + MediaFile::recording;
    checkpoint->recording = video;
    Checkpoint interrupted = *checkpoint;
    interrupted.captureNote = "Workspace captured at the start of your session, which ended before it was stopped.";
    SessionJournal::write(media->folder(), interrupted);
    media->adopt();
    co_await m_capture.startRecording(video, exclusions().appIDs());
    media->keep();
    const PublishTogether group;
    m_active = *checkpoint;
    startedAt.set(Date::now());
    recording.set(true);
    notice.set(tr("Recording your main display. Stop any time from the menu bar."));
}

void AppStore::recordingFailed(const Failure &failure)
{
    error.set(tr("Recording stopped unexpectedly: ") + withoutFullStop(failure.description()) +
              tr(". Use Stop & save checkpoint to preserve the checkpoint."));
}

QCoro::Task<void> AppStore::stop()
{
    if (busy() || !recording() || !m_active)
        co_return;
    busy.set(true);
    clearMessages();
    const auto over = qScopeGuard([this] { endSession(); });
    Checkpoint checkpoint = *m_active;
    const std::optional<QString> problem = co_await finishVideo(&checkpoint);
    co_await captureEnd(&checkpoint);
    saveSession(checkpoint, problem);
}

void AppStore::endSession()
{
    const PublishTogether group;
    recording.set(false);
    m_active.reset();
    startedAt.set(std::nullopt);
    busy.set(false);
}

// What went wrong, if anything did; the checkpoint is then saved without the video.
QCoro::Task<std::optional<QString>> AppStore::finishVideo(Checkpoint *checkpoint)
{
    try {
        co_await m_capture.stopRecording();
    } catch (const Failure &failure) {
        checkpoint->recording.reset();
        co_return tr("The video could not be finalized. Your screenshot and workspace will still be saved. ") +
            failure.description();
    }
    co_return std::nullopt;
}

QCoro::Task<void> AppStore::captureEnd(Checkpoint *checkpoint)
{
    Checkpoint end = *checkpoint;
    QString limits;
    bool hasPicture = true;
    try {
        co_await fill(&end, mediaFolder(end.id), includeBrowser(), &limits);
    } catch (const Failure &) {
        hasPicture = false;
    }
    if (!hasPicture && !m_desktop.workspace->availability().isAvailable()) {
        // Nothing can be seen any more, which does not mean that nothing was there.
        checkpoint->captureNote = "Workspace captured at the start of your session; at its end the desktop had gone.";
    } else {
        *checkpoint = std::move(end);
        checkpoint->captureNote = "Workspace captured at the end of your session." + limits;
        if (!hasPicture)
            checkpoint->captureNote += " The screenshot is from the start of the session.";
    }
    const QString folder = MediaFolders::own(m_repository.root(), checkpoint->id);
    if (!checkpoint->recording && QFile::exists(folder + '/' + MediaFile::recording))
        checkpoint->captureNote +=
            u" The recording broke off; what there is of it is kept with the media as %1."_qs.arg(
                QString(MediaFile::recording));
}

void AppStore::saveSession(const Checkpoint &checkpoint, const std::optional<QString> &problem)
{
    const QString folder = MediaFolders::own(m_repository.root(), checkpoint.id);
    try {
        SessionJournal::write(mediaFolder(checkpoint.id),
                              checkpoint); // Should the library refuse, the next start tries again.
    } catch (const Failure &) {
        // The journal of the start is still there.
    }
    const bool isSaved = save(checkpoint);
    if (problem)
        error.set(error() ? *problem + ' ' + *error() : *problem);
    if (!isSaved)
        return;
    SessionJournal::remove(folder);
    notice.set(tr("Recording stopped and checkpoint saved. Add a next step to make returning easier."));
    considerNewsletter();
}

void AppStore::recoverSessions(const QSet<QUuid> &journals)
{
    WorkspaceLibrary changed = library();
    QStringList titles;
    const QList<Checkpoint> pending = SessionJournal::pending(m_repository.root(), journals);
    for (const Checkpoint &session : pending) {
        if (checkpoint(session.id))
            continue; // Only the journal was left behind.
        changed.checkpoints.prepend(session);
        titles.append(session.title);
    }
    if (!titles.isEmpty() && !commit(std::move(changed), tr("Could not save an interrupted work session: ")))
        return;
    for (const Checkpoint &session : pending)
        SessionJournal::remove(MediaFolders::own(m_repository.root(), session.id));
    if (titles.size() == 1)
        notice.set(tr("Your work session “%1” was interrupted. Its checkpoint has been saved with what was recorded.")
                       .arg(titles.first()));
    else if (!titles.isEmpty())
        notice.set(tr("%n work sessions were interrupted. Their checkpoints have been saved with what was recorded.",
                      "", static_cast<int>(titles.size())));
}

} // namespace ardeno
