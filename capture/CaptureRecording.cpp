// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureService.h"
#include "desktop/RecordingLayout.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

Failure noDisplay()
{
    return {"Capture", 1, QCoreApplication::translate("ardeno::CaptureService", "No display is available to capture.")};
}

// The main display; the first one when nobody knows which that is.
CaptureDisplay displayToRecord(const RecordableContent &content)
{
    if (content.displays.isEmpty())
        throw noDisplay();
    const auto main = std::find_if(content.displays.cbegin(), content.displays.cend(),
                                   [&](const CaptureDisplay &display) { return display.id == content.mainDisplayID; });
    return main == content.displays.cend() ? content.displays.first() : *main;
}

} // namespace

QCoro::Task<void> CaptureService::startRecording(QString path, QSet<QString> excludingAppIDs)
{
    if (!m_recorder)
        throw notAvailable(QCoreApplication::translate("ardeno::CaptureService", "The screen cannot be recorded."));
    if (m_stream)
        throw Failure("Capture", 5,
                      QCoreApplication::translate("ardeno::CaptureService", "A recording is running already."));
    const RecordingRequest request = recordingRequest(path, excludingAppIDs);
    m_didFinish = false;
    m_recordingError.reset();
    ++m_recordings;
    const RecordingEvents events = recordingEvents();
    m_stream = co_await m_recorder->start(request, events);
}

RecordingRequest CaptureService::recordingRequest(const QString &path, const QSet<QString> &excludedAppIDs)
{
    const RecordableContent content = m_recorder->content();
    RecordingRequest request;
    request.path = path;
    request.display = displayToRecord(content);
    request.size = RecordingLayout::frameSize(request.display.bounds);
    request.excludedAppIDs = excludedAppIDs;
    request.onlyRunningApps = !excludedAppIDs.isEmpty();
    if (request.size.isEmpty())
        throw noDisplay();
    const auto isAllowed = [&](const QString &id) { return !excludedAppIDs.contains(id); };
    const QStringList &running = content.applicationIDs;
    if (request.onlyRunningApps && std::none_of(running.cbegin(), running.cend(), isAllowed))
        throw Failure(
            "Capture", 4,
            QCoreApplication::translate("ardeno::CaptureService", "No allowed applications are available to record."));
    return request;
}

// The stream reports on a thread of its own.
RecordingEvents CaptureService::recordingEvents()
{
    const quint64 recording = m_recordings;
    RecordingEvents events;
    events.finished = [this, recording] {
        const auto deliver = [this, recording] {
            if (recording == m_recordings)
                finished();
        };
        QMetaObject::invokeMethod(&m_context, deliver, Qt::QueuedConnection);
    };
    events.failed = [this, recording](const Failure &failure) {
        const auto deliver = [this, recording, failure] {
            if (recording == m_recordings)
                fail(failure);
        };
        QMetaObject::invokeMethod(&m_context, deliver, Qt::QueuedConnection);
    };
    return events;
}

void CaptureService::finished()
{
    m_didFinish = true;
    resumeFinalization();
}

void CaptureService::fail(const Failure &failure)
{
    m_recordingError = failure;
    resumeFinalization();
    if (onFailure)
        onFailure(failure);
}

void CaptureService::resumeFinalization()
{
    if (const auto waiting = std::exchange(m_finalization, nullptr))
        waiting->finish();
}

QCoro::Task<void> CaptureService::stopRecording()
{
    if (!m_stream)
        co_return;
    const auto idle = qScopeGuard([this] {
        m_stream.reset();
        m_finalization.reset();
        ++m_recordings; // What is still on its way is of no interest.
    });
    co_await m_stream->stop();
    if (!m_didFinish && !m_recordingError) {
        m_finalization = std::make_shared<QPromise<void>>();
        m_finalization->start();
        const QFuture<void> isOver = m_finalization->future();
        QTimer::singleShot(m_patience, &m_context, [this, waiting = std::weak_ptr(m_finalization)] {
            if (const auto still = waiting.lock(); still && still == m_finalization)
                resumeFinalization();
        });
        co_await isOver;
    }
    if (m_recordingError)
        throw Failure(*m_recordingError);
    if (!m_didFinish) {
        throw Failure(
            "Capture", 3,
            QCoreApplication::translate("ardeno::CaptureService",
                                        "Recording is taking too long to finish. Your checkpoint can still be saved."));
    }
}

} // namespace ardeno
