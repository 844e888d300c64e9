// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/AppStore.h"
#include "store/MediaFolders.h"
#include "store/SessionJournal.h"
#include "store/Subjects.h"
#include "support/Identifiers.h"

#include <QFile>
#include <QScopeGuard>

#include <utility>

namespace ardeno {

namespace {

const QString noteOfEnd = "Workspace captured at the end of your session.";

// The description of a failure as a part of a longer sentence.
QString withoutFullStop(QString sentence)
{
    if (sentence.endsWith('.'))
        sentence.chop(1);
    return sentence;
}

} // namespace

QCoro::Task<Outcome> AppStore::startSession(CaptureRequest request, Audience audience)
{
    return carryOut(capture(std::move(request), CaptureKind::Session, audience), audience);
}

std::optional<QString> AppStore::sessionObstacle() const
{
    const Capability recorder = m_desktop.screenRecorder->availability();
    if (recording())
        return tr("A work session is being recorded already. Stop it before you start another one.");
    return recorder.isAvailable() ? std::nullopt : std::optional(recorder.reason);
}

// From here on the session outlives the program: what was captured so far lies beside the video that begins now.
QCoro::Task<void> AppStore::beginRecording(OwnedCheckpoint session, UnsavedMedia *media)
{
    const QString video = MediaFolders::own(m_repository.root(), session.checkpoint.id) + '/' + MediaFile::recording;
    session.checkpoint.recording = video;
    Checkpoint interrupted = session.checkpoint;
    interrupted.captureNote = "Workspace captured at the start of your session, which ended before it was stopped.";
    SessionJournal::write(media->folder(), interrupted);
    media->adopt();
    m_active = std::move(session);
    auto giveUp = qScopeGuard([this] { m_active.reset(); });
    co_await m_capture.startRecording(video, exclusions().appIDs());
    giveUp.dismiss();
    media->keep();
    const PublishTogether group;
    startedAt.set(Date::now());
    recording.set(true);
}

// What is wrong stays to be seen until the session ends, also when the message has been dismissed.
void AppStore::recordingFailed(const Failure &failure)
{
    dismissNotice(); // That it is being recorded.
    recordingFailure.set(withoutFullStop(failure.description()));
    report(tr("Recording stopped unexpectedly: ") + *recordingFailure() +
               tr(". Use Stop & save checkpoint to preserve the checkpoint."),
           subjects::recording);
}

QCoro::Task<Outcome> AppStore::stop(Audience audience)
{
    return carryOut(stopSession(audience), audience);
}

QCoro::Task<Outcome> AppStore::stopSession(Audience audience)
{
    Outcome outcome{.subject = subjects::recording};
    co_await whenIdle();
    if (!recording() || !m_active)
        co_return outcome;
    busy.set(true);
    const auto over = qScopeGuard([this] { endSession(); });
    OwnedCheckpoint session = *m_active;
    const std::optional<QString> problem = co_await finishVideo(&session.checkpoint);
    if (problem)
        outcome.fail(*problem);
    co_await captureEnd(&session.checkpoint);
    outcome.id = session.checkpoint.id;
    saveSession(session, audience, &outcome);
    co_return outcome;
}

void AppStore::endSession()
{
    const PublishTogether group;
    recording.set(false);
    m_active.reset();
    startedAt.set(std::nullopt);
    recordingFailure.set(std::nullopt);
    resolve(subjects::recording); // What it asked for has been done.
    resolve(subjects::whileRecording);
    busy.set(false);
}

// What went wrong, if anything did; the checkpoint is then saved without the video.
QCoro::Task<std::optional<QString>> AppStore::finishVideo(Checkpoint *checkpoint)
{
    try {
        co_await m_capture.stopRecording();
    } catch (...) {
        checkpoint->recording.reset();
        co_return tr("The video could not be finalized. Your screenshot and workspace will still be saved. ") +
            Failure::current().description();
    }
    co_return std::nullopt;
}

QCoro::Task<void> AppStore::captureEnd(Checkpoint *checkpoint)
{
    if (exclusionsObstacle())
        checkpoint->captureNote = "Workspace captured at the start of your session; at its end your capture exclusions "
                                  "could not be read.";
    else
        co_await captureWorkspaceAtEnd(checkpoint);
    const QString folder = MediaFolders::own(m_repository.root(), checkpoint->id);
    if (!checkpoint->recording && QFile::exists(folder + '/' + MediaFile::recording))
        checkpoint->captureNote +=
            u" The recording broke off; what there is of it is kept with the media as %1."_qs.arg(
                QString(MediaFile::recording));
}

QCoro::Task<void> AppStore::captureWorkspaceAtEnd(Checkpoint *checkpoint)
{
    Checkpoint end = *checkpoint;
    QString limits;
    bool hasPicture = true;
    const bool withTabs = includeBrowser();
    try {
        co_await fill(&end, mediaFolder(end.id), withTabs, &limits);
    } catch (...) {
        hasPicture = false; // The note says so.
    }
    if (!hasPicture && !m_desktop.workspace->availability().isAvailable()) {
        // Nothing can be seen any more, which does not mean that nothing was there.
        checkpoint->captureNote = "Workspace captured at the start of your session; at its end the desktop had gone.";
        co_return;
    }
    const bool hadTabs = !checkpoint->tabs.isEmpty();
    *checkpoint = std::move(end);
    checkpoint->captureNote = noteOfEnd + limits;
    if (hadTabs && !withTabs)
        checkpoint->captureNote += " Browser capture was off by then.";
    if (!hasPicture)
        checkpoint->captureNote += " The screenshot is from the start of the session.";
}

void AppStore::saveSession(const OwnedCheckpoint &session, Audience audience, Outcome *outcome)
{
    const Checkpoint &checkpoint = session.checkpoint;
    const QString folder = MediaFolders::own(m_repository.root(), checkpoint.id);
    try {
        SessionJournal::write(mediaFolder(checkpoint.id),
                              checkpoint); // Should the library refuse, the next start tries again.
    } catch (const Failure &) {
        // The journal of the start is still there.
    }
    if (!write(session, outcome)) {
        outcome->remarks += keepUnsaved(session);
        return;
    }
    SessionJournal::remove(folder);
    outcome->isDone = true;
    outcome->notice = tr("Recording stopped and checkpoint saved. Add a next step to make returning easier.");
    if (audience == Audience::Caller)
        return;
    show(checkpoint);
    considerNewsletter();
}

Remark AppStore::sessionSaved(const Checkpoint &session)
{
    return {.sentence = tr("Your work session “%1” has been saved now.").arg(session.title),
            .subject = subjects::about("session", session.id)};
}

Remark AppStore::keepUnsaved(const OwnedCheckpoint &unsaved)
{
    m_unsavedSessions.append(unsaved);
    const Checkpoint &session = unsaved.checkpoint;
    return {.sentence = tr("Your work session “%1” is kept in %2 and will be saved as soon as the library can be "
                           "written.")
                            .arg(session.title, MediaFolders::own(m_repository.root(), session.id)),
            .subject = subjects::about("session", session.id),
            .hasUnsavedSession = true};
}

void AppStore::sessionsSaved(const WorkspaceLibrary &written, Outcome *outcome)
{
    const QSet<QUuid> saved = idsOf(written.checkpoints);
    for (const auto &[session, project] : std::exchange(m_unsavedSessions, {})) {
        if (!saved.contains(session.id))
            continue; // It was to be deleted.
        SessionJournal::remove(MediaFolders::own(m_repository.root(), session.id));
        outcome->remarks += sessionSaved(session);
    }
}

Outcome AppStore::saveUnsavedSessions()
{
    Outcome outcome{.subject = "unsaved sessions"};
    const auto nothingElse = [this](const WorkspaceLibrary &) { return !m_unsavedSessions.isEmpty(); };
    outcome.isDone = commit(nothingElse, tr("Could not save this checkpoint: "), &outcome);
    return concluded(std::move(outcome));
}

QList<Checkpoint> AppStore::interruptedSessions(const QSet<QUuid> &journals, Outcome *outcome) const
{
    QList<Checkpoint> interrupted;
    for (const QUuid &id : journals) {
        const QString folder = MediaFolders::own(m_repository.root(), id);
        if (checkpoint(id)) { // Its journal was left behind alone.
            SessionJournal::remove(folder);
            continue;
        }
        try {
            interrupted.append(SessionJournal::read(m_repository.root(), id));
        } catch (const Failure &failure) {
            const QString sentence = tr("A work session was interrupted. What is kept of it in %1 could not be read, "
                                        "which the next start tries again: %2");
            outcome->remarks += Remark{.sentence = sentence.arg(folder, failure.description()),
                                       .subject = subjects::about("session", id)};
        }
    }
    return interrupted;
}

void AppStore::recoverSessions(const QSet<QUuid> &journals)
{
    Outcome outcome;
    const QList<Checkpoint> interrupted = interruptedSessions(journals, &outcome);
    const auto add = [&](WorkspaceLibrary &library) {
        library.checkpoints = interrupted + library.checkpoints;
        return true;
    };
    if (!interrupted.isEmpty() && !commit(add, tr("Could not save an interrupted work session: "), &outcome)) {
        for (const Checkpoint &session : interrupted)
            outcome.remarks += keepUnsaved(owned(session));
        tell(outcome);
        return;
    }
    for (const Checkpoint &session : interrupted) {
        SessionJournal::remove(MediaFolders::own(m_repository.root(), session.id));
        Remark remark = sessionSaved(session);
        if (!session.captureNote.startsWith(noteOfEnd)) // Else it was stopped, and only could not be written.
            remark.sentence =
                tr("Your work session “%1” was interrupted. Its checkpoint has been saved with what was recorded.")
                    .arg(session.title);
        outcome.remarks += remark;
    }
    tell(outcome);
}

} // namespace ardeno
