// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CheckpointRepository.h"
#include "tests/desktop/DesktopFile.h"
#include "tests/ui/RunningWindow.h"

using namespace ardeno;
using desktop_test::Application;
using desktop_test::visibleWindows;

namespace {

// The program on a library that was written before, with applications that only it sees installed.
struct ProgramOnLibrary : RunningWindow {
    void install(const QString &id, const QString &lines) const
    {
        desktop_test::writeDesktopFile(home.filePath("data/applications"), id, lines.toUtf8());
    }

    void write(const Checkpoint &checkpoint) const
    {
        WorkspaceLibrary library{.checkpoints = {checkpoint}};
        library.projects = {{.id = *checkpoint.projectID, .name = "Thesis"}};
        CheckpointRepository(root()).saveLibrary(library);
    }

    void openLibrary()
    {
        open();
        REQUIRE(sees("Saved workspace"));
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
    openLibrary();
    key("ctrl+s");
    REQUIRE(sees("Save a checkpoint."));
    type("Evening");
    picture("program-capture");
    click("Record a work session");
    click("Start session");
    REQUIRE(sees("Stop & save checkpoint"));
    picture("program-recording");
    click("Stop & save checkpoint");
    REQUIRE(eventually([this] { return stored("checkpoints").size() == 2; }));
    const QJsonObject session = stored("checkpoints").at(0).toObject();
    CHECK(session.value("title").toString() == "Evening");
    CHECK(QFileInfo(session.value("recording").toString()).size() > 1000);
    CHECK(sees("Recording stopped and checkpoint saved. Add a next step to make returning easier."));
    picture("program-recorded");
    key("ctrl+s");
    CHECK(sees("Save a checkpoint.")); // The next one is an ordinary one.
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
    openLibrary();
    click("Resume workspace");
    const bool isReady = sees("Open 1 missing item");
    picture("program-restore");
    REQUIRE(isReady);
    CHECK(seesNow("Running, Active"));
    CHECK(seesNow("Missing, Will open"));
    CHECK(seesNow("Gone, Not installed"));
    click("Open 1 missing item");
    REQUIRE(eventually([] { return visibleWindows("missing-one").size() == 1; }));
    CHECK(sees(u"Workspace restored · 1 opened · 1 already active · 1 unavailable"_qs));
    click("Show what is not back"); // The sentence counts, the page names.
    CHECK(sees("Not available: Gone"));
    CHECK(visibleWindows("running-one").size() == 1);
    picture("program-resumed");
}
