// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include <map>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture, "the manager opens and deletes checkpoints, and shows when none is left")
{
    openProject();
    saveTwoCheckpoints();
    click("Manage checkpoints");
    CHECK(seesText("Selected: Newer"));
    pictures("manager");
    press(Qt::Key_Down);
    CHECK(seesText("Selected: Older"));
    click("Actions for Older");
    choose("Open checkpoint");
    CHECK(seesText("Older"));
    CHECK_FALSE(window->sheets().isCovering());
    CHECK(findButton("Back to latest"));
    click("Manage checkpoints");
    for (int left = 2; left > 0; --left) {
        click("Delete selected checkpoint…");
        click("Delete checkpoint");
        CHECK(store().library.checkpoints().size() == left - 1);
    }
    CHECK(seesText("No checkpoints"));
    pictures("manager-empty");
    click("Done");
    CHECK(seesText("Your project is ready"));
}

TEST_CASE_FIXTURE(WindowFixture, "a recording is viewed only from the checkpoint's own folder")
{
    const QUuid project = openProject();
    Checkpoint checkpoint = saveCheckpoint(project, "Session", 10);
    const QString folder = QFileInfo(*checkpoint.screenshot).path() + '/';
    const QString video = home.filePath("holiday.mp4");
    writeFile(video, "mine");
    QFile::link(video, folder + "session.mp4");
    const QString failed = "Could not open the recording. ";
    const std::map<QString, QString> cases = {
        {video, "It is not in this checkpoint’s storage folder."},
        {"https://example.org/session.mp4", "It is not in this checkpoint’s storage folder."},
        {folder + "../../holiday.mp4", "It is not in this checkpoint’s storage folder."},
        {folder + "session.mp4", "There is no such file."},
        {folder + "gone.mp4", "There is no such file."},
    };
    for (const auto &[path, reason] : cases) {
        CAPTURE(path);
        checkpoint.recording = path;
        REQUIRE(store().editing.save(checkpoint));
        settle();
        click("View recording");
        CHECK(seesText(failed + reason));
        press(Qt::Key_Return);
    }
}

TEST_CASE_FIXTURE(WindowFixture, "a project that has got another checkpoint meanwhile is asked about anew")
{
    const QUuid project = openProject();
    saveCheckpoint(project, "First", 10);
    store().sheets.askToDelete(*store().library.project(project));
    settle();
    REQUIRE(seesText("Delete project?"));
    saveCheckpoint(project, "Second", 20);
    settle();
    click("Delete project");
    CHECK(store().library.checkpoints().size() == 2);
    REQUIRE(seesText("Delete project?"));
    CHECK(window->sheets().topSheet()->accessibleDescription().contains("all 2 checkpoints"));
    click("Delete project");
    CHECK(store().library.projects().isEmpty());
    CHECK_FALSE(window->sheets().isCovering());
}
