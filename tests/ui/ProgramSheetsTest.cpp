// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"
#include "tests/desktop/Desktop.h"
#include "tests/ui/RunningWindow.h"

using namespace ardeno;
using desktop_test::Application;
using desktop_test::visibleWindows;

namespace {

// The program on a library that was written before, with applications that only it sees installed.
struct ProgramOnLibrary : RunningWindow {
    void install(const QString &id, const QString &lines) const
    {
        QDir().mkpath(home.filePath("data/applications"));
        QFile file(home.filePath("data/applications/" + id + ".desktop"));
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write(("[Desktop Entry]\nType=Application\n" + lines + '\n').toUtf8());
    }

    void write(const Checkpoint &checkpoint) const
    {
        WorkspaceLibrary library{.checkpoints = {checkpoint}};
        library.projects = {{.id = *checkpoint.projectID, .name = "Thesis"}};
        CheckpointRepository(root()).saveLibrary(library);
    }

    void openFocused()
    {
        open();
        focus();
        REQUIRE(sees("Saved workspace"));
    }

    QStringList storedTitles(const char *list) const
    {
        QStringList titles;
        for (const QJsonValue &item : stored("checkpoints").at(0).toObject().value(list).toArray())
            titles << item.toObject().value(qstrcmp(list, "apps") == 0 ? "name" : "title").toString();
        return titles;
    }
};

Checkpoint withPages()
{
    Checkpoint checkpoint{.title = "Chapter", .projectID = QUuid::createUuid()};
    checkpoint.apps = {{"running", "Running"}, {"missing", "Missing"}, {"gone", "Gone"}};
    checkpoint.tabs = {{.title = "First", .url = "https://one.example/"},
                       {.title = "Second", .url = "https://two.example/"},
                       {.title = "Third", .url = "https://three.example/"}};
    return checkpoint;
}

} // namespace

TEST_CASE_FIXTURE(ProgramOnLibrary, "the program records a session from its sheet to the stop button of the window")
{
    write(withPages());
    openFocused();
    REQUIRE(keyUntil("ctrl+s", [this] { return shown().has("Save a checkpoint."); }));
    type("Evening");
    picture("program-capture");
    REQUIRE(click("Record a work session"));
    REQUIRE(click("Start session"));
    REQUIRE(sees("Stop & save checkpoint"));
    picture("program-recording");
    REQUIRE(click("Stop & save checkpoint"));
    REQUIRE(waitUntil([this] { return stored("checkpoints").size() == 2; }));
    const QJsonObject session = stored("checkpoints").at(0).toObject();
    CHECK(session.value("title").toString() == "Evening");
    CHECK(QFileInfo(session.value("recording").toString()).size() > 1000);
    CHECK(sees("Recording stopped and checkpoint saved. Add a next step to make returning easier."));
    picture("program-recorded");
}

TEST_CASE_FIXTURE(ProgramOnLibrary, "the program removes a tab, puts it back, and excludes an application by its menu")
{
    write(withPages());
    openFocused();
    REQUIRE(shown().focus("Add current tabs"));
    key("Tab");
    REQUIRE(sees("Remove tab First from checkpoint"));
    key("Down");
    REQUIRE(click("Remove tab Second from checkpoint"));
    REQUIRE(waitUntil([this] { return storedTitles("tabs").size() == 2; }));
    CHECK(storedTitles("tabs") == QStringList{"First", "Third"});
    picture("program-removed");
    REQUIRE(click("Undo"));
    REQUIRE(waitUntil([this] { return storedTitles("tabs") == QStringList{"First", "Second", "Third"}; }));

    REQUIRE(shown().focus("Add current tabs"));
    key("shift+Tab");
    REQUIRE(sees("Remove Running from this checkpoint"));
    REQUIRE(waitUntil([this] {
        key("Menu");
        QTest::qWait(300);
        picture("program-menu");
        key("Down");
        key("Return");
        return QTest::qWaitFor(
            [this] { return shown().has("Running excluded from future captures. This checkpoint is unchanged."); },
            5000);
    }));
    picture("program-excluded");
    CHECK(storedTitles("apps").size() == 3);
}

TEST_CASE_FIXTURE(ProgramOnLibrary, "the program resumes what is missing and leaves alone what runs")
{
    install("running", "Name=Running\nExec=xterm -class ArdenoRunning -T running-one\nStartupWMClass=ArdenoRunning");
    install("missing", "Name=Missing\nExec=xterm -class ArdenoMissing -T missing-one\nStartupWMClass=ArdenoMissing");
    Application running("xterm", {"-class", "ArdenoRunning", "-T", "running-one"});
    REQUIRE(running.waitForWindow("running-one") != 0);
    Checkpoint checkpoint = withPages();
    checkpoint.tabs.clear();
    write(checkpoint);
    openFocused();
    REQUIRE(click("Resume workspace"));
    REQUIRE(sees("Open 1 missing item"));
    CHECK(shown().has("Running, Active"));
    CHECK(shown().has("Missing, Will open"));
    CHECK(shown().has("Gone, Not installed"));
    picture("program-restore");
    REQUIRE(click("Open 1 missing item"));
    REQUIRE(waitUntil([] { return visibleWindows("missing-one").size() == 1; }));
    CHECK(sees(u"Workspace restored · 1 opened · 1 already active · 1 unavailable"_qs));
    CHECK(visibleWindows("running-one").size() == 1);
    picture("program-resumed");
}
