// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "capture/CaptureService.h"
#include "desktop/Desktop.h"
#include "store/Library.h"

namespace ardeno {

class UnsavedMedia;

// The work session that is being recorded.
class SessionRecorder final {
    Q_DECLARE_TR_FUNCTIONS(ardeno::SessionRecorder)

public:
    template <typename T>
    using Published = PublishedBy<T, SessionRecorder>;

    Published<bool> recording;
    Published<std::optional<Date>> startedAt;
    Published<std::optional<QString>> recordingFailure; // Why nothing is recorded any more, until the session ends.

    SessionRecorder(Desktop &desktop, CaptureService &capture, const Library &library, Messages &messages);

    // From before the recorder is started: its project and the exclusions stay as they are.
    const std::optional<OwnedCheckpoint> &active() const { return m_active; }

    // Why none can be started.
    std::optional<QString> sessionObstacle() const;
    // Without the windows of these applications. Throws Failure; nothing is recorded then.
    QCoro::Task<void> begin(OwnedCheckpoint session, QSet<QString> excludedAppIDs, UnsavedMedia *media);
    // What went wrong, if anything did; the checkpoint is then saved without the video.
    QCoro::Task<std::optional<QString>> finishVideo(Checkpoint *checkpoint);
    // The session is over, however it was saved.
    void end();

private:
    void recordingFailed(const Failure &failure);

    Desktop &m_desktop;
    CaptureService &m_capture;
    const Library &m_library;
    Messages &m_messages;
    std::optional<OwnedCheckpoint> m_active = {};
};

} // namespace ardeno
