// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/ShownPicture.h"

#include <map>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture, "a screenshot that is missing or damaged is named, never an empty frame")
{
    const QUuid project = openProject();
    const Checkpoint damaged = saveCheckpoint(project, "Damaged", 10);
    Checkpoint missing{.title = "Missing", .projectID = project, .screenshot = home.filePath("nowhere.png")};
    REQUIRE(store().editing.save(missing));
    settle();
    REQUIRE(shownPicture(*this));
    CHECK(eventually([this] { return shownPicture(*this)->isUnavailable(); }));
    picture("screenshot-unavailable");
    store().navigation.selectCheckpoint(damaged.id);
    settle();
    REQUIRE(shownPicture(*this));
    CHECK(eventually([this] { return shownPicture(*this)->isUnavailable(); }));
}

TEST_CASE_FIXTURE(WindowFixture, "a checkpoint is deleted only after the question was answered so")
{
    openProject();
    saveTwoCheckpoints();
    press(Qt::Key_Delete, Qt::ControlModifier);
    CHECK(seesText("Delete this checkpoint and its local recording?"));
    picture("delete-checkpoint");
    press(Qt::Key_Return); // Deleting wants its own button.
    CHECK(store().library.checkpoints().size() == 2);
    clickRow(list("Checkpoint history"), 1, Qt::RightButton);
    choose("Delete checkpoint…");
    CHECK(seesText(u"This removes “Older” and its local screenshot or recording."_qs));
    press(Qt::Key_Escape);
    CHECK(store().library.checkpoints().size() == 2);
    press(Qt::Key_Delete, Qt::ControlModifier);
    click("Delete checkpoint");
    REQUIRE(store().library.checkpoints().size() == 1);
    CHECK(seesText("1 saved"));
    CHECK(store().library.checkpoints().first().title == "Older");
}

TEST_CASE_FIXTURE(WindowFixture, "a project is deleted with all it holds only after the question was answered so")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    click("All projects");
    click("Actions for Thesis");
    choose("Delete project…");
    CHECK(seesText(u"Delete “Thesis” and all 1 checkpoints, including their local screenshots and recordings? This "
                   "cannot be undone."_qs));
    press(Qt::Key_Escape);
    CHECK(store().library.projects().size() == 1);
    click("Actions for Thesis");
    choose("Delete project…");
    click("Delete project");
    CHECK(store().library.projects().isEmpty());
    CHECK(seesText("Create a project to save your first checkpoint."));
}

TEST_CASE_FIXTURE(WindowFixture, "the manager opens and deletes checkpoints, and shows when none is left")
{
    openProject();
    saveTwoCheckpoints();
    click("Manage checkpoints");
    CHECK(seesText("Selected: Newer"));
    picture("manager");
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
    picture("manager-empty");
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
