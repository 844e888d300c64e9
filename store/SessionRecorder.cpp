// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/SessionRecorder.h"

#include "store/MediaFolders.h"
#include "store/SessionJournal.h"
#include "store/Subjects.h"
#include "store/UnsavedMedia.h"

#include <QScopeGuard>

#include <utility>

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

SessionRecorder::SessionRecorder(Desktop &desktop, CaptureService &capture, const Library &library, Messages &messages)
    : m_desktop(desktop), m_capture(capture), m_library(library), m_messages(messages)
{
    m_capture.onFailure = [this](const Failure &failure) { recordingFailed(failure); };
}

std::optional<QString> SessionRecorder::sessionObstacle() const
{
    const Capability recorder = m_desktop.screenRecorder->availability();
    if (recording())
        return tr("A work session is being recorded already. Stop it before you start another one.");
    return recorder.isAvailable() ? std::nullopt : std::optional(recorder.reason);
}

// From here on the session outlives the program: what was captured so far lies beside the video that begins now.
QCoro::Task<void> SessionRecorder::begin(OwnedCheckpoint session, QSet<QString> excludedAppIDs, UnsavedMedia *media)
{
    const QString folder = MediaFolders::own(m_library.storageFolder(), session.checkpoint.id);
    const QString video = folder + '/' + MediaFile::recording;
    session.checkpoint.recording = video;
    Checkpoint interrupted = session.checkpoint;
    interrupted.captureNote = "Workspace captured at the start of your session, which ended before it was stopped.";
    SessionJournal::write(media->folder(), interrupted);
    media->adopt();
    m_active = std::move(session);
    auto giveUp = qScopeGuard([this] { m_active.reset(); });
    co_await m_capture.startRecording(video, excludedAppIDs);
    giveUp.dismiss();
    media->keep();
    const PublishTogether group;
    startedAt.set(Date::now());
    recording.set(true);
}

// What is wrong stays to be seen until the session ends, also when the message has been dismissed.
void SessionRecorder::recordingFailed(const Failure &failure)
{
    m_messages.dismissNotice(); // That it is being recorded.
    recordingFailure.set(withoutFullStop(failure.description()));
    m_messages.report(tr("Recording stopped unexpectedly: ") + *recordingFailure() +
                          tr(". Use Stop & save checkpoint to preserve the checkpoint."),
                      subjects::recording);
}

QCoro::Task<std::optional<QString>> SessionRecorder::finishVideo(Checkpoint *checkpoint)
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

void SessionRecorder::end()
{
    const PublishTogether group;
    recording.set(false);
    m_active.reset();
    startedAt.set(std::nullopt);
    recordingFailure.set(std::nullopt);
    m_messages.resolve(subjects::recording); // What it asked for has been done.
    m_messages.resolve(subjects::whileRecording);
}

} // namespace ardeno
