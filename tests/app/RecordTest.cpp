// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/Program.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/Video.h"

#include <QDirIterator>
#include <QJsonArray>

#include <csignal>
#include <sys/file.h>

using namespace ardeno;
using desktop_test::Application;
using desktop_test::eventually;
using desktop_test::Video;

namespace {

// What a command started to record goes on without it; it ends with the test.
struct RecordingFixture : ProgramFixture {
    // A terminal in which lines run past.
    Application terminal{"xterm",
                         {"-geometry", "100x40+200+150", "-T", "ablation run", "-e", "sh", "-c",
                          "while :; do date +%N; ls /usr/bin | head -n 20; sleep .1; done"}};

    RecordingFixture() { REQUIRE(terminal.waitForWindow("ablation run") != 0); }

    ~RecordingFixture()
    {
        if (isRunning())
            ::kill(process(), SIGKILL);
    }

    pid_t process() const { return pid_t(libraryHolder()); }

    bool isRunning() const
    {
        QFile lock(root() + "/lock");
        return lock.open(QIODevice::ReadWrite) && ::flock(lock.handle(), LOCK_EX | LOCK_NB) != 0;
    }

    void end(int signal) const
    {
        REQUIRE(isRunning());
        ::kill(process(), signal);
        REQUIRE(eventually([this] { return !isRunning(); }));
    }

    // The video that is being written, once it holds so many frames.
    QString recorded(int frames) const
    {
        QString path;
        QDirIterator found(root(), {"session.mp4"}, QDir::Files, QDirIterator::Subdirectories);
        while (found.hasNext())
            path = found.next();
        CHECK(eventually([&] { return Video(path).frames() >= frames; }));
        return path;
    }
};

} // namespace

TEST_CASE_FIXTURE(RecordingFixture, "a work session is recorded while other commands go on, and stopping it saves it")
{
    const ProgramResult started = run({"record", "start", "--project", "Thesis", "--title", "Ablation"});
    CAPTURE(started.error);
    REQUIRE(started.status == 0);
    CHECK(started.out.startsWith("Recording your main display. Stop any time "));
    CHECK(run({"record", "start", "--project", "Thesis"}).error.contains("already"));
    CHECK(run({"save", "--project", "Other", "--no-tabs"}).status == 0);
    CHECK(run({"exclude", "app", "org.x"}).error.contains("Finish the recording before changing exclusions."));
    CHECK(run({"list"}).out.contains("Other"));
    const QString path = recorded(20);

    const ProgramResult stopped = run({"record", "stop"});
    CHECK(stopped.status == 0);
    CHECK(stopped.out.contains("Recording stopped and checkpoint saved."));
    CHECK(stopped.out.endsWith(path.toUtf8() + '\n'));
    CHECK(run({"record", "stop"}).error == "No work session is being recorded.\n");
    const Video video(path);
    CHECK(video.codec() == "h264");
    CHECK(video.size() == QSize(1920, 1080));
    CHECK(video.seconds() > 1.5);
    CHECK(video.problems() == "");
    REQUIRE(checkpoints().size() == 2);
    const QJsonObject saved = run({"show", "--json", QString(started.out.split('\n').at(1))}).json();
    CHECK(saved.value("recording") == path);
    CHECK(saved.value("title") == "Ablation");
    CHECK(saved.value("captureNote") == "Workspace captured at the end of your session.");
    end(SIGTERM);
    CHECK(run({"list"}).out.contains("Ablation"));
}

TEST_CASE_FIXTURE(RecordingFixture,
                  "a program killed in a session leaves a video that plays, and the next start saves it")
{
    REQUIRE(run({"record", "start", "--project", "Thesis", "--title", "Ablation"}).status == 0);
    const QString path = recorded(20);
    end(SIGKILL);
    CHECK(Video(path).frames() >= 20);
    CHECK(checkpoints().isEmpty());

    const ProgramResult next = run({"list"});
    CHECK(next.error ==
          "Your work session “Ablation” was interrupted. Its checkpoint has been saved with what was recorded.\n");
    REQUIRE(checkpoints().size() == 1);
    const QJsonObject saved = checkpoints().at(0).toObject();
    CHECK(saved.value("recording") == path);
    CHECK(saved.value("apps").toArray().size() == 1);
    CHECK(QFile::exists(saved.value("screenshot").toString()));
    CHECK(Video(path).problems() == "");
    CHECK(run({"list"}).error.isEmpty());
}

TEST_CASE_FIXTURE(RecordingFixture, "an application that is told to end saves the session in progress first")
{
    for (const int signal : {SIGTERM, SIGHUP}) {
        REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
        end(signal);
        CHECK(QDir(root()).entryList({"*"}, QDir::Dirs | QDir::NoDotAndDotDot).size() == checkpoints().size());
    }
    REQUIRE(checkpoints().size() == 2);
    for (const QJsonValue &checkpoint : checkpoints())
        CHECK(Video(checkpoint.toObject().value("recording").toString()).problems() == "");
}

TEST_CASE_FIXTURE(RecordingFixture, "the end of the session's bus is the end of the application, which saves first")
{
    QProcess bus;
    const QString address = "unix:path=" + home.filePath("bus");
    bus.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--address=" + address});
    REQUIRE(eventually([this] { return QFile::exists(home.filePath("bus")); }));
    environment.insert("DBUS_SESSION_BUS_ADDRESS", address);
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    bus.terminate();
    bus.waitForFinished();
    REQUIRE(eventually([this] { return !isRunning(); }));
    CHECK(checkpoints().size() == 1);
    CHECK(run({"list"}).error.isEmpty());

    const ProgramResult refused = run({"record", "start", "--project", "Thesis"});
    CHECK(refused.status == 3);
    CHECK(refused.error.contains("session bus"));
    CHECK(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0); // Alone.
}

TEST_CASE_FIXTURE(RecordingFixture, "a display that dies ends the application, and the next start saves the session")
{
    desktop_test::BareServer server;
    const QString display = environment.value("DISPLAY");
    environment.insert("DISPLAY", server.name());
    REQUIRE(run({"record", "start", "--project", "Thesis", "--title", "Ablation"}).status == 0);
    const QString path = recorded(2);
    server.end();
    REQUIRE(eventually([this] { return !isRunning(); }));

    environment.insert("DISPLAY", display);
    CHECK(run({"list"}).error.contains("Your work session “Ablation” was interrupted."));
    REQUIRE(checkpoints().size() == 1);
    const QJsonObject saved = checkpoints().at(0).toObject();
    CHECK(saved.value("recording") == path);
    CHECK(QFile::exists(saved.value("screenshot").toString()));
    CHECK(Video(path).frames() >= 2);
}

TEST_CASE_FIXTURE(RecordingFixture, "one application serves all commands, and tells of itself on the bus")
{
    const auto application = start({"--background"});
    REQUIRE(eventually([this] { return isRunning(); }));
    CHECK(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);
    CHECK(run({"--background"}).status == 0); // There is one already.
    CHECK(process() == application->processId());
    CHECK(run({"show", "XYZ"}).error == "There is no checkpoint “XYZ”.\n");
    CHECK(run({"doctor", "--json"}).json().value("session") == "x11");
    std::vector<std::unique_ptr<QProcess>> processes;
    for (int i = 0; i < 4; ++i)
        processes.push_back(start({"save", "--project", "Thesis", "--no-tabs"}));
    for (const auto &process : processes)
        CHECK(ProgramFixture::end(*process).status == 0);
    CHECK(checkpoints().size() == 5);

    const QStringList target = {"--session", "--dest", "org.ardeno.Ardeno", "--object-path", "/org/ardeno/Ardeno"};
    const QString described = desktop_test::outputOf("gdbus", QStringList{"introspect"} + target);
    CHECK(described.contains("interface org.freedesktop.Application"));
    CHECK(described.contains("Execute(in  as arguments"));
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    desktop_test::outputOf("gdbus", QStringList{"call"} + target +
                                        QStringList{"--method", "org.freedesktop.Application.ActivateAction",
                                                    "stop-recording", "[]", "{}"});
    CHECK(eventually([this] { return checkpoints().size() == 6; }));
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + home.filePath("nowhere"));
    const ProgramResult unreachable = run({"save", "--project", "Thesis", "--no-tabs"});
    CHECK(unreachable.status == 1);
    CHECK(unreachable.error.contains(QByteArray::number(application->processId())));
    end(SIGTERM);
    REQUIRE(application->waitForFinished());
    CHECK(application->exitCode() == 0);
}
