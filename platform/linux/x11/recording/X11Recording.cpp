// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/recording/X11Recording.h"

#include "support/Failure.h"
#include "support/Worker.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <thread>
#include <utility>

namespace ardeno {

namespace {

constexpr auto frameInterval = std::chrono::milliseconds(100);
// How long the first frame may take while displays are being rearranged.
constexpr auto firstFrameTime = std::chrono::seconds(3);

} // namespace

X11Recording::X11Recording(RecordingRequest request, QString ownAppID, std::shared_ptr<X11RedirectionKeeper> keeper,
                           std::shared_ptr<RememberedTraces> remembered)
    : m_request(std::move(request)),
      m_ownAppID(std::move(ownAppID)),
      m_keeper(std::move(keeper)),
      m_remembered(std::move(remembered))
{
}

void X11Recording::begin()
{
    try {
        takeFirstFrame();
    } catch (const std::bad_alloc &) {
        throw Failure::system(ENOMEM);
    }
}

void X11Recording::takeFirstFrame()
{
    m_source.emplace(m_request, m_ownAppID, m_keeper, m_remembered);
    std::optional<FetchedPixels> first = m_source->frame();
    for (const auto deadline = Clock::now() + firstFrameTime; !first; first = m_source->frame()) {
        if (Clock::now() > deadline)
            throw Failure("Capture", 2, "The displays changed while the recording was started.");
        std::this_thread::sleep_for(frameInterval);
    }
    m_writer.emplace(m_request.path, m_request.size);
    m_start = Clock::now();
    m_writer->write(first->bytes, 0);
    m_writer->flush(0);
}

void X11Recording::run()
{
    std::optional<Failure> problem;
    try {
        takeFrames();
    } catch (const Failure &failure) {
        problem = failure;
    } catch (const std::bad_alloc &) {
        problem = Failure::system(ENOMEM);
    }
    m_source.reset();
    // The file is finished even when the screen has gone, so that it can be played. The first failure is reported.
    try {
        m_writer->finish(elapsed());
    } catch (const Failure &failure) {
        problem = problem.value_or(failure);
    }
    m_writer.reset();
    if (problem)
        throw Failure(*problem);
}

void X11Recording::takeFrames()
{
    auto due = m_start + frameInterval;
    while (waitUntil(due)) {
        due = std::max(due + frameInterval, Clock::now());
        takeFrame();
    }
}

void X11Recording::takeFrame()
{
    if (m_source->hasChanged()) {
        if (const std::optional<FetchedPixels> pixels = m_source->frame())
            m_writer->write(pixels->bytes, elapsed());
    }
    m_writer->keepUp(elapsed());
}

qint64 X11Recording::elapsed() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_start).count();
}

bool X11Recording::waitUntil(Clock::time_point due)
{
    std::unique_lock lock(m_mutex);
    return !m_asked.wait_until(lock, due, [this] { return m_mustStop; });
}

void X11Recording::stop()
{
    const std::scoped_lock lock(m_mutex);
    m_mustStop = true;
    m_asked.notify_all();
}

struct X11RecordingStream::Outlet {
    explicit Outlet(RecordingEvents wanted) : events(std::move(wanted)) {}

    void report(const std::optional<Failure> &problem)
    {
        const std::scoped_lock lock(mutex);
        if (problem && events.failed)
            events.failed(*problem);
        else if (!problem && events.finished)
            events.finished();
        hasEnded = true;
        ended.notify_all();
    }

    std::mutex mutex = {};
    std::condition_variable ended = {};
    RecordingEvents events;
    bool hasEnded = false;
};

X11RecordingStream::X11RecordingStream(std::shared_ptr<X11Recording> recording, RecordingEvents events)
    : m_recording(std::move(recording)), m_outlet(std::make_shared<Outlet>(std::move(events)))
{
    const auto work = [running = m_recording, outlet = m_outlet]() mutable {
        std::optional<Failure> problem;
        try {
            running->run();
        } catch (const Failure &failure) {
            problem = failure;
        }
        running.reset();
        outlet->report(problem);
    };
    startWorker(work).detach();
}

// A disk that does not answer must not keep the program from going on.
X11RecordingStream::~X11RecordingStream()
{
    constexpr auto patience = std::chrono::seconds(2);
    m_recording->stop();
    std::unique_lock lock(m_outlet->mutex);
    m_outlet->events = {};
    m_outlet->ended.wait_for(lock, patience, [this] { return m_outlet->hasEnded; });
}

QCoro::Task<void> X11RecordingStream::stop()
{
    m_recording->stop();
    co_return;
}

} // namespace ardeno
