// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"
#include "tests/ui/RunningWindow.h"

using namespace ardeno;

TEST_CASE_FIXTURE(RunningWindow, "the program makes a project, saves a checkpoint, runs once and ends when asked to")
{
    open();
    focus();
    // The sheet for a new project comes with the views; Return in it makes the project.
    REQUIRE(waitUntil([this] {
        key("ctrl+n");
        type("Thesis");
        key("Return");
        return QTest::qWaitFor([this] { return !stored("projects").isEmpty(); }, 1500);
    }));
    // The first letters may have come before the sheet.
    const QString name = stored("projects").at(0).toObject().value("name").toString();
    CHECK_FALSE(name.isEmpty());
    REQUIRE(keyUntil("ctrl+s", [this] { return shown().has("Save a checkpoint."); }));
    REQUIRE(click("Save checkpoint"));
    REQUIRE(waitUntil([this] { return !stored("checkpoints").isEmpty(); }));
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
    REQUIRE(waitUntil([this] {
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
