// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/Program.h"
#include "model/LibraryLock.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QJsonArray>
#include <QTest>

using namespace ardeno;

namespace {

bool eventually(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 30'000);
}

QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The finished program with its window, worked through the X server.
struct RunningWindow : ProgramFixture {
    std::unique_ptr<QProcess> program;
    QString window; // Its number.

    void open()
    {
        program = start({});
        const bool isThere = eventually([this] {
            window = outputOf("xdotool", {"search", "--onlyvisible", "--pid", QString::number(program->processId())})
                         .section('\n', 0, 0);
            return !window.isEmpty() && outputOf("wmctrl", {"-l"}).contains("Ardeno");
        });
        const QByteArray said = program->readAllStandardError();
        CAPTURE(said);
        REQUIRE(isThere);
    }

    ~RunningWindow()
    {
        if (program && program->state() != QProcess::NotRunning) {
            program->kill();
            program->waitForFinished();
        }
    }

    void key(const QString &keys) const { outputOf("xdotool", {"key", "--window", "0", keys}); }

    void type(const QString &text) const { outputOf("xdotool", {"type", "--delay", "20", text}); }

    void focus() const { outputOf("xdotool", {"windowactivate", "--sync", window}); }

    QJsonArray stored(const char *list) const { return library().value(list).toArray(); }

    // Keys are lost while the program is still busy with the one before, so they are sent until they show.
    bool keyUntil(const QString &keys, const std::function<bool()> &condition) const
    {
        for (int attempt = 0; attempt < 20; ++attempt) {
            key(keys);
            if (QTest::qWaitFor(condition, 2000))
                return true;
        }
        return false;
    }

    void picture(const QString &name) const
    {
        QDir().mkpath(ARDENO_PICTURES);
        outputOf("maim", {"-i", window, QString(ARDENO_PICTURES "/%1.png").arg(name)});
    }
};

} // namespace

TEST_CASE_FIXTURE(RunningWindow, "the program makes a project, saves a checkpoint, runs once and ends when asked to")
{
    open();
    focus();
    // The sheet for a new project comes with the views; Return in it makes the project.
    REQUIRE(eventually([this] {
        key("ctrl+n");
        type("Thesis");
        key("Return");
        return QTest::qWaitFor([this] { return !stored("projects").isEmpty(); }, 1500);
    }));
    // The first letters may have come before the sheet.
    const QString name = stored("projects").at(0).toObject().value("name").toString();
    CHECK_FALSE(name.isEmpty());
    REQUIRE(keyUntil("ctrl+s", [this] { return !stored("checkpoints").isEmpty(); }));
    const QJsonObject checkpoint = stored("checkpoints").at(0).toObject();
    CHECK(QFile::exists(checkpoint.value("screenshot").toString()));

    const ProgramResult second = run({});
    CHECK(second.status == 0);
    CHECK(outputOf("wmctrl", {"-l"}).count("Ardeno") == 1);

    picture("program");

    program->terminate();
    const ProgramResult ended = end(*program);
    CHECK(ended.status == 0);
    CHECK(ended.error == QByteArray());
    CHECK(run({"list"}).out.contains(name.toUtf8()));
}

TEST_CASE_FIXTURE(RunningWindow, "the window is there before the library can be read, and shows it afterwards")
{
    {
        const LibraryLock lock = LibraryLock::waitFor({root()}, std::chrono::milliseconds(0));
        open();
        picture("before-the-library");
        CHECK(program->state() == QProcess::Running);
    }
    focus();
    REQUIRE(eventually([this] {
        key("ctrl+n");
        type("Garden");
        key("Return");
        return QTest::qWaitFor([this] { return !stored("projects").isEmpty(); }, 1500);
    }));
}

TEST_CASE_FIXTURE(ProgramFixture, "without a display the program says so")
{
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    const ProgramResult result = run({});
    CHECK(result.status == 3);
    CHECK(result.out.isEmpty());
    CHECK(result.error.contains("There is no display"));
}
