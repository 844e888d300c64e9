// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11recording/RecordingFixture.h"

#include "platform/linux/x11/windows/RunningProcesses.h"
#include "platform/linux/x11/windows/X11Workspace.h"
#include "tests/Printing.h"
#include "tests/platform/x11screen/painter/PaintedWindow.h"

#include <QElapsedTimer>

#include <unistd.h>

using namespace ardeno;
using namespace ardeno::screen_test;
using desktop_test::eventually;
using desktop_test::Video;

TEST_SUITE("everywhere")
{
    TEST_CASE_FIXTURE(RecordingFixture, "a recording shows what happens on the display, and the pointer")
    {
        start();
        std::unique_ptr<Painter> window;
        record([&] {
            window = std::make_unique<Painter>(QStringList{"class=open", "colour=00c000", "geometry=100,100,600,400"});
        });
        record([&] { movePointer(300, 300); });
        record([&] { window.reset(); });
        const Video video = stop();

        CHECK(video.codec() == "h264");
        CHECK(video.size() == QSize(1920, 1080));
        const QList<QImage> pictures = video.pictures();
        REQUIRE(pictures.size() > 3);
        CHECK(countOf(pictures.first(), openColour) < 500);
        CHECK(countOf(pictures.last(), openColour) < 500);
        CHECK(framesWith(video, openColour) > 0);
        const QRect pointer(290, 290, 30, 30);
        CHECK(pictures.last().copy(pointer) != pictures.first().copy(pointer));
    }

    TEST_CASE_FIXTURE(RecordingFixture,
                      "an excluded application, one that starts later and the program's own are in no frame")
    {
        const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
        auto secret =
            std::make_unique<Painter>(QStringList{"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});
        sharing.prepareExclusion({secretID});
        start({secretID});
        const Painter later({"class=open", "colour=ffff00", "geometry=750,100,300,300"});
        const Painter popup({"class=secret", "colour=ff00ff", "geometry=320,420,150,150", "kind=popup"});
        PaintedWindow own(Painting{.windowClass = "ardeno", .colour = 0x00ffff, .geometry = {100, 600, 200, 150}});
        own.waitUntilShown();
        record([&] { movePointer(90, 90); });
        secret.reset();
        record([&] { movePointer(60, 60); });
        const Video video = stop();

        const int frames = int(video.pictures().size());
        CHECK(frames > 2);
        CHECK(framesWith(video, secretColour) == 0);
        CHECK(framesWith(video, 0xffffff00) == 0);
        CHECK(framesWith(video, 0xff00ffff) == 0);
        CHECK(framesWith(video, openColour) == frames);
    }

    TEST_CASE_FIXTURE(RecordingFixture,
                      "a window of the program's own that appears meanwhile is in no frame, nor what it leaves")
    {
        const Painter open(
            {"class=open", "colour=00c000", "geometry=100,100,600,400", "background=none", "drawing=once"});
        start();
        auto own = std::make_unique<PaintedWindow>(
            Painting{.windowClass = "ardeno", .colour = 0x00ffff, .geometry = {300, 200, 200, 150}});
        own->waitUntilShown();
        record([&] { movePointer(60, 60); });
        own.reset();
        record([&] { movePointer(90, 90); });
        const Video video = stop();

        CHECK(framesWith(video, 0xff00ffff) == 0);
        CHECK(framesWith(video, openColour) > 2);
    }
}

TEST_CASE_FIXTURE(RecordingFixture,
                  "while nothing changes there is no frame, and the video has its length all the same")
{
    const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
    QElapsedTimer clock;
    start();
    clock.start();
    movePointer(60, 60);
    eventually([&] { return clock.elapsed() > 4'000; });
    const double seconds = double(clock.elapsed()) / 1000;
    const Video video = stop();
    CHECK(video.frames() < 15);
    CHECK(video.seconds() > seconds - 0.3);
    CHECK(video.seconds() < seconds + 2);
}

TEST_CASE_FIXTURE(RecordingFixture, "a recording that is stopped at once is a short video")
{
    start();
    const Video video = stop();
    CHECK(video.frames() >= 1);
    CHECK(video.problems() == "");
    start(); // And another one can follow.
    CHECK(stop().frames() >= 1);
}

TEST_CASE_FIXTURE(RecordingFixture, "a display that changes its size is shown whole in frames of the old size")
{
    setMonitors({{"ONE", "1280/300x720/200+0+0"}});
    const Painter open({"class=open", "colour=00c000", "geometry=0,0,1280,1000", "kind=popup"});
    start();
    setMonitors({{"ONE", "500/300x1000/200+0+0"}});
    record([&] { movePointer(60, 60); });
    record([&] { movePointer(90, 90); });
    const Video video = stop();

    CHECK(video.size() == QSize(1280, 720));
    const QList<QImage> pictures = video.pictures();
    CHECK(countOf(pictures.first(), openColour) > 1280 * 700);
    const QImage &last = pictures.last();
    CHECK(countOf(last.copy(0, 0, 440, 720), openColour) == 0);
    CHECK(countOf(last.copy(470, 0, 340, 720), openColour) > 340 * 700);
    CHECK(countOf(last.copy(840, 0, 440, 720), openColour) == 0);
}

TEST_CASE_FIXTURE(RecordingFixture, "a display that goes and a folder that goes end the recording with the reason")
{
    setMonitors({{"ONE", "960/300x1080/300+0+0"}, {"TWO", "960/300x1080/300+960+0"}});
    start();
    setMonitors({{"TWO", "960/300x1080/300+960+0"}});
    CHECK(eventually([&] { return !failure.isEmpty(); }));
    CHECK(failure == "The display that was recorded is no longer connected.");
    CHECK_THROWS_AS(blockOn(service.stopRecording()), Failure);
    CHECK(Video(path).problems() == "");

    QDir().mkpath(folder.filePath("media"));
    path = folder.filePath("media/session.mp4");
    failure.clear();
    start();
    QDir(folder.filePath("media")).removeRecursively();
    CHECK(eventually([&] { return !failure.isEmpty(); }));
    CHECK(failure == "No such file or directory.");
    CHECK_THROWS_AS(blockOn(service.stopRecording()), Failure);
}

TEST_CASE_FIXTURE(RecordingFixture,
                  "a server that has gone ends the recording with the reason, and what there is can be played")
{
    for (const bool isExcluding : {false, true}) {
        CAPTURE(isExcluding);
        BareServer server;
        const auto other = std::make_shared<X11RedirectionKeeper>(server.name());
        X11ScreenCapture screenThere("org.ardeno.Ardeno", other);
        X11ScreenRecorder recorderThere("org.ardeno.Ardeno", other);
        if (isExcluding)
            screenThere.prepareExclusion({secretID});
        RecordingRequest request;
        request.path = path;
        request.display = screenThere.displays().first();
        request.size = QSize(640, 480);
        if (isExcluding)
            request.excludedAppIDs = {secretID};
        QAtomicInt reports = 0;
        RecordingEvents events;
        events.failed = [&](const Failure &) { reports.fetchAndAddOrdered(1); };
        std::unique_ptr<RecordingStream> stream;
        const auto begin = [&]() -> QCoro::Task<void> { stream = co_await recorderThere.start(request, events); };
        blockOn(begin());

        server.end();

        CHECK(eventually([&] { return reports.loadAcquire() == 1; }));
        stream.reset();
        CHECK(Video(path).frames() >= 1);
        CHECK(Video(path).problems() == "");
        CHECK_FALSE(recorderThere.availability().isAvailable());
    }
}

TEST_CASE_FIXTURE(RecordingFixture,
                  "an excluded application that was removed is in no picture and no frame, whoever claims its windows")
{
    const QDir files(QDir::homePath() + "/.local/share/applications");
    const QString vaultID = "org.example.Vault"; // No name of its windows.
    REQUIRE(QFile::rename(files.filePath(secretID + ".desktop"), files.filePath(vaultID + ".desktop")));
    const auto entries = std::make_shared<DesktopEntries>();
    X11ScreenCapture screenNow("org.ardeno.Ardeno", keeper, entries->remembered());
    X11ScreenRecorder recorderNow("org.ardeno.Ardeno", keeper, entries);
    CaptureService serviceNow(screenNow, &recorderNow);
    X11Workspace workspace(std::make_shared<X11Connection>(), entries);
    const std::optional<ApplicationMarks> marks = workspace.marks(vaultID);
    REQUIRE(marks.has_value());
    const Painter open({"class=open", "colour=00c000", "geometry=600,100,200,150"});
    const Painter secret({"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});
    REQUIRE(shows(secretColour));
    REQUIRE(QFile::rename(files.filePath(vaultID + ".desktop"), files.filePath("copy.desktop")));
    REQUIRE(countOf(picture(screenNow, {vaultID}), secretColour) > 10000); // The copy's, as far as anybody knows.

    workspace.setExcluded({vaultID}, {*marks});
    CHECK(countOf(picture(screenNow, {vaultID}), secretColour) == 0);
    blockOn(serviceNow.startRecording(path, {vaultID}));
    blockOn(serviceNow.stopRecording());
    screenNow.prepareExclusion({});
    CHECK(framesWith(Video(path), openColour) > 0);
    CHECK(framesWith(Video(path), secretColour) == 0);
    QFile::remove(files.filePath("copy.desktop"));
}

TEST_CASE("a later process is none of those that were running")
{
    const X11Connection connection;
    const RunningProcesses running = RunningProcesses::of(connection);
    CHECK(running.contains(qint32(getpid())));
    const Painter later({"class=open", "colour=00c000", "geometry=100,100,60,40"});
    const RunningProcesses then = RunningProcesses::of(connection);
    int added = 0;
    for (const qint32 process : connectedProcesses(connection))
        added += then.contains(process) && !running.contains(process) ? 1 : 0;
    CHECK(added == 1);
}
