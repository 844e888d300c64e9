// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenRecorder.h"
#include "media/VideoWriter.h"
#include "platform/linux/x11/recording/X11FrameSource.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

namespace ardeno {

// One recording from its first frame to its last: waits for changes, takes frames, writes them. One thread at a time.
class X11Recording final {
public:
    X11Recording(RecordingRequest request, QString ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                 std::shared_ptr<RememberedTraces> remembered);

    // Returns when the first frame is in the file. Throws Failure.
    void begin();
    // Goes on until it is asked to stop, and completes the file. Throws Failure.
    void run();
    // From any thread.
    void stop();

private:
    using Clock = std::chrono::steady_clock;

    // False when it is time to stop.
    bool waitUntil(Clock::time_point due);
    void takeFirstFrame();
    void takeFrames();
    void takeFrame();
    qint64 elapsed() const;

    const RecordingRequest m_request;
    const QString m_ownAppID;
    const std::shared_ptr<X11RedirectionKeeper> m_keeper;
    const std::shared_ptr<RememberedTraces> m_remembered;
    std::optional<X11FrameSource> m_source = {};
    std::optional<VideoWriter> m_writer = {};
    Clock::time_point m_start = {};
    std::mutex m_mutex = {}; // Of what follows.
    std::condition_variable m_asked = {};
    bool m_mustStop = false;
};

// The recording on a thread of its own.
class X11RecordingStream final : public RecordingStream {
public:
    X11RecordingStream(std::shared_ptr<X11Recording> recording, RecordingEvents events);
    X11RecordingStream(const X11RecordingStream &) = delete;
    X11RecordingStream &operator=(const X11RecordingStream &) = delete;
    ~X11RecordingStream() override;

    QCoro::Task<void> stop() override;

private:
    // What the thread reports, until the stream has gone.
    struct Outlet;

    std::shared_ptr<X11Recording> m_recording;
    std::shared_ptr<Outlet> m_outlet;
};

} // namespace ardeno
