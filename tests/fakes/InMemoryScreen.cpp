// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fakes/InMemoryParts.h"

#include <QCoroTimer>
#include <QFile>

#include <chrono>
#include <utility>

namespace ardeno::fakes {

namespace {

class InMemoryWindowServer final : public Available<WindowServer> {
public:
    using Available::Available;

    QList<Display> displays() override { return m_desktop.displays; }

    QList<QString> virtualDesktops() override { return m_desktop.virtualDesktops; }

    QList<WindowInfo> allWindows() override { return m_desktop.windows; }
};

class InMemoryScreenCapture final : public Available<ScreenCapture> {
public:
    using Available::Available;

    Capability exclusionAvailability() const override { return Capability::available(); }

    QList<CaptureDisplay> displays() override
    {
        QList<CaptureDisplay> displays;
        for (const Display &display : m_desktop.displays)
            displays.append({display.id, display.bounds});
        return displays;
    }

    void prepareExclusion(const QSet<QString> &appIDs) override { m_desktop.preparedExclusions.append(appIDs); }

    QCoro::Task<Canvas> compose(CanvasRequest request) override
    {
        m_desktop.requests.append(request);
        // A real picture takes its time: whoever asked goes on meanwhile.
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        if (m_desktop.whileComposing)
            m_desktop.whileComposing();
        if (m_desktop.pictureFailure)
            throw Failure(*m_desktop.pictureFailure);
        const qsizetype bytes = qsizetype(request.size.width()) * request.size.height() * 4 - m_desktop.missingBytes;
        co_return Canvas{request.size, QByteArray(bytes, '\x40')};
    }
};

class InMemoryStream final : public InMemory<RecordingStream> {
public:
    using InMemory::InMemory;

    ~InMemoryStream() override { m_desktop.recordingEvents = {}; }

    QCoro::Task<void> stop() override
    {
        if (m_desktop.whenStopped)
            m_desktop.whenStopped();
        else if (m_desktop.recordingEvents.finished)
            m_desktop.recordingEvents.finished();
        co_return;
    }
};

class InMemoryScreenRecorder final : public InMemory<ScreenRecorder> {
public:
    using InMemory::InMemory;

    Capability availability() const override { return m_desktop.recorder; }

    RecordableContent content() override
    {
        RecordableContent content;
        for (const Display &display : m_desktop.displays) {
            content.displays.append({display.id, display.bounds});
            if (display.isMain)
                content.mainDisplayID = display.id;
        }
        for (const RunningApplication &application : m_desktop.running)
            content.applicationIDs.append(application.id);
        return content;
    }

    QCoro::Task<std::unique_ptr<RecordingStream>> start(RecordingRequest request, RecordingEvents events) override
    {
        m_desktop.recordings.append(request);
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        if (m_desktop.whileStarting)
            m_desktop.whileStarting();
        if (m_desktop.recordingFailure)
            throw Failure(*m_desktop.recordingFailure);
        QFile file(request.path);
        if (file.open(QIODevice::WriteOnly))
            file.write("video");
        m_desktop.recordingEvents = std::move(events);
        co_return std::make_unique<InMemoryStream>(m_desktop);
    }
};

class InMemoryScreenAccess final : public InMemory<ScreenAccess> {
public:
    using InMemory::InMemory;

    Capability availability() const override
    {
        if (m_desktop.screenAccess)
            return Capability::available();
        if (m_desktop.noScreenAccess)
            return Capability::unavailable(*m_desktop.noScreenAccess);
        return {Capability::State::NeedsConsent, {}};
    }

    bool ask() override
    {
        ++m_desktop.timesAsked;
        m_desktop.screenAccess = m_desktop.screenAccess || m_desktop.consentOnAsking;
        return m_desktop.screenAccess;
    }

    bool openSettings() override
    {
        ++m_desktop.timesSettingsOpened;
        return true;
    }
};

} // namespace

void addScreen(InMemoryDesktop &memory, Desktop *desktop)
{
    desktop->windowServer = std::make_unique<InMemoryWindowServer>(memory);
    desktop->screenCapture = std::make_unique<InMemoryScreenCapture>(memory);
    desktop->screenRecorder = std::make_unique<InMemoryScreenRecorder>(memory);
    desktop->screenAccess = std::make_unique<InMemoryScreenAccess>(memory);
}

} // namespace ardeno::fakes
