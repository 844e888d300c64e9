// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"
#include "desktop/ScreenRecorder.h"
#include "support/Failure.h"

#include <QCoroTask>
#include <QObject>
#include <QPromise>
#include <QSet>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace ardeno {

// Pictures and recordings of the screen as checkpoints keep them. Lives on the main thread and outlives the tasks it
// gave out.
class CaptureService final {
public:
    // Screen and recorder belong to the desktop and outlive the service. Without a recorder there are only pictures.
    // The patience is for a recording to be finished after it was stopped.
    explicit CaptureService(ScreenCapture &screen, ScreenRecorder *recorder = nullptr,
                            std::chrono::milliseconds patience = std::chrono::seconds(15))
        : m_screen(screen), m_recorder(recorder), m_patience(patience)
    {
    }

    // Writes one PNG of all displays side by side (mode 0600, replaced as a whole), without the windows of these
    // applications and of this program. Throws Failure: domain "Capture", the file system's, or the desktop's own;
    // nothing is written before the whole picture exists.
    QCoro::Task<void> screenshot(QString path, QSet<QString> excludingAppIDs);

    // Returns when pictures of the screen may be taken now; throws Failure otherwise.
    QCoro::Task<void> verifyAccess();

    // Records the main display into that file until stopRecording(), without the windows of these applications and of
    // this program; where any are left out, also without those of applications that start later. Returns when the first
    // frame is in the file. Throws Failure: domain "Capture", or the desktop's own.
    QCoro::Task<void> startRecording(QString path, QSet<QString> excludingAppIDs);
    // Returns when the file is complete, at once when nothing is being recorded. Throws Failure when the recording
    // broke off or takes too long to be finished; nothing is being recorded afterwards either way.
    QCoro::Task<void> stopRecording();

    // Called when a running recording breaks off; it stays to be stopped.
    std::function<void(const Failure &)> onFailure = {};

private:
    RecordingRequest recordingRequest(const QString &path, const QSet<QString> &excludedAppIDs);
    RecordingEvents recordingEvents();
    void finished();
    void fail(const Failure &failure);
    void resumeFinalization();

    ScreenCapture &m_screen;
    ScreenRecorder *m_recorder;
    std::chrono::milliseconds m_patience;

    QObject m_context;                                   // Where the stream's reports arrive; outlives the stream.
    quint64 m_recordings = 0;                            // Tells reports of earlier recordings.
    std::unique_ptr<RecordingStream> m_stream = {};      // Null when idle.
    std::shared_ptr<QPromise<void>> m_finalization = {}; // While somebody waits for the end of the file.
    std::optional<Failure> m_recordingError = {};        // Why the recording broke off.
    bool m_didFinish = false;                            // The file is complete.
};

} // namespace ardeno
