// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureService.h"
#include "desktop/RecordingLayout.h"

#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"
#include "tests/support/FailureOf.h"

#include <QTemporaryDir>

using namespace ardeno;

namespace {

struct RecordedScreen {
    fakes::InMemoryDesktop memory = {};
    Desktop desktop = memory.makeDesktop();
    QTemporaryDir folder = {};
    QList<QString> reported = {};
    CaptureService service{*desktop.screenCapture, desktop.screenRecorder.get()};

    RecordedScreen()
    {
        memory.addDisplay(7, {0, 0, 1366, 768});
        memory.addDisplay(8, {1366, 0, 3840, 2160});
        memory.addApplication("org.editor", "Editor", {0, 0, 500, 500});
        listenTo(service);
    }

    void listenTo(CaptureService &to)
    {
        to.onFailure = [this](const Failure &failure) { reported.append(failure.description()); };
    }

    static QString outcome(QCoro::Task<void> task)
    {
        return wholeFailureOf([&] { blockOn(std::move(task)); });
    }

    QString start(const QSet<QString> &excluded = {})
    {
        return outcome(service.startRecording(folder.filePath("session.mp4"), excluded));
    }
};

const Failure diskFull("POSIX", 28, "No space left on device.");

} // namespace

TEST_CASE_FIXTURE(RecordedScreen,
                  "the main display is recorded, without the excluded applications and those that start later")
{
    memory.displays[0].isMain = false;
    memory.displays[1].isMain = true;
    REQUIRE(start() == "");
    CHECK(memory.recordings.last().display.id == 8);
    CHECK(memory.recordings.last().size == QSize(1920, 1080));
    CHECK_FALSE(memory.recordings.last().onlyRunningApps);
    CHECK(start() == "Capture 5: A recording is running already.");
    CHECK(outcome(service.stopRecording()) == "");

    memory.displays[1].isMain = false; // Nobody knows: the first one.
    REQUIRE(start({"org.secret"}) == "");
    CHECK(memory.recordings.last().display.id == 7);
    CHECK(memory.recordings.last().size == QSize(1366, 768));
    CHECK(memory.recordings.last().onlyRunningApps);
    CHECK(memory.recordings.last().excludedAppIDs == QSet<QString>{"org.secret"});
}

TEST_CASE_FIXTURE(RecordedScreen, "what cannot be recorded is refused, and the next recording is not harmed by it")
{
    CHECK(start({"org.editor"}) == "Capture 4: No allowed applications are available to record.");
    memory.recordingFailure = diskFull;
    CHECK(start() == "POSIX 28: No space left on device.");
    memory.recordingFailure.reset();
    const QList<Display> displays = std::exchange(memory.displays, {});
    CHECK(start() == "Capture 1: No display is available to capture.");
    CHECK(outcome(service.stopRecording()) == ""); // Nothing is being recorded.
    memory.displays = displays;
    CHECK(start() == "");
    CHECK(reported.isEmpty());
}

TEST_CASE_FIXTURE(RecordedScreen,
                  "a file that is finished before, while or after the stop is waited for no longer than needed")
{
    REQUIRE(start() == "");
    memory.recordingEvents.finished();
    memory.whenStopped = [] {};
    CHECK(outcome(service.stopRecording()) == "");

    REQUIRE(start() == "");
    memory.whenStopped = [this] {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { memory.recordingEvents.finished(); }, Qt::QueuedConnection);
    };
    CHECK(outcome(service.stopRecording()) == "");
    CHECK(outcome(service.stopRecording()) == "");
    CHECK(reported.isEmpty());
}

TEST_CASE_FIXTURE(RecordedScreen,
                  "a file that is never finished ends in a failure, and the next recording begins afresh")
{
    CaptureService impatient(*desktop.screenCapture, desktop.screenRecorder.get(), std::chrono::milliseconds(1));
    const QString path = folder.filePath("session.mp4");
    blockOn(impatient.startRecording(path, {}));
    const RecordingEvents late = memory.recordingEvents;
    memory.whenStopped = [] {};
    CHECK(outcome(impatient.stopRecording()) ==
          "Capture 3: Recording is taking too long to finish. Your checkpoint can still be saved.");

    CHECK(outcome(impatient.startRecording(path, {})) == "");
    late.finished(); // Of the first recording: this one is not finished by it.
    CHECK(outcome(impatient.stopRecording()).startsWith("Capture 3: "));
}

TEST_CASE_FIXTURE(RecordedScreen,
                  "a recording that breaks off is reported, and stopping it gives the last reason at once")
{
    REQUIRE(start() == "");
    memory.recordingEvents.failed(diskFull);
    memory.recordingEvents.failed(Failure("X11", 1, "The connection to the display was lost."));
    memory.whenStopped = [] {};
    CHECK(outcome(service.stopRecording()) == "X11 1: The connection to the display was lost.");
    CHECK(reported == QStringList{"No space left on device.", "The connection to the display was lost."});

    REQUIRE(start() == "");
    memory.whenStopped = [this] {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { memory.recordingEvents.failed(diskFull); }, Qt::QueuedConnection);
    };
    CHECK(outcome(service.stopRecording()) == "POSIX 28: No space left on device.");
    memory.whenStopped = {};
    CHECK(start() == "");
    CHECK(outcome(service.stopRecording()) == "");
}

TEST_CASE(
    "frames keep the display's proportions, are even and at most 1920 wide, and show a display that changes whole")
{
    struct Case {
        WindowRect display;
        QSize frame;
    };

    const QList<Case> cases = {
        {{0, 0, 3840, 2160}, {1920, 1080}},
        {{0, 0, 1366, 768}, {1366, 768}},
        {{0, 0, 1367, 769}, {1366, 768}},
        {{0, 0, 3024, 1964}, {1920, 1246}},
        {{0, 0, 1080, 1920}, {1080, 1920}},
        {{0, 0, 0, 0}, {0, 0}},
        {{0, 0, 1, 1}, {2, 2}},
    };
    for (const Case &one : cases) {
        CAPTURE(one.display.width);
        CHECK(RecordingLayout::frameSize(one.display) == one.frame);
    }
    const auto target = [](double width, double height) {
        return RecordingLayout::placement({1, {0, 0, width, height}}, {1920, 1080}).target;
    };
    CHECK(target(1920, 1080) == WindowRect{0, 0, 1920, 1080});
    CHECK(target(1921, 1081) == WindowRect{0, 0, 1921, 1081}); // Its last column and row are lost.

    CHECK(target(1080, 1920) == WindowRect{656, 0, 607, 1080});
    CHECK(target(800, 600) == WindowRect{560, 240, 800, 600});
    CHECK(target(3840, 1080) == WindowRect{0, 270, 1920, 540});
}
