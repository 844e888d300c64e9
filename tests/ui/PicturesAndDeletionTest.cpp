// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/ShownPicture.h"

#include <QApplication>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QTest>

using namespace ardeno;

TEST_CASE_FIXTURE(WindowFixture, "an image is added to a checkpoint and removed again")
{
    openWindow();
    store().createProject("Thesis");
    Checkpoint checkpoint{.title = "Chapter", .projectID = store().projects().first().id};
    REQUIRE(store().save(checkpoint));
    settle();
    CHECK(seesText("No screenshot saved"));
    picture("no-screenshot");
    QImage image(640, 400, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    REQUIRE(image.save(home.filePath("photo.png")));
    click("Add image…");
    auto *const dialog = window->findChild<QFileDialog *>();
    REQUIRE(dialog);
    dialog->selectFile(home.filePath("photo.png"));
    Q_EMIT dialog->fileSelected(home.filePath("photo.png"));
    dialog->reject();
    REQUIRE(eventually([this] { return shownPicture(*this) && shownPicture(*this)->isShown(); }));
    CHECK(seesText("Image added. A copy is saved with this checkpoint."));
    picture("image-added");
    click("Remove");
    CHECK(seesText("No screenshot saved"));
    CHECK_FALSE(store().checkpoints().first().screenshot);
}

TEST_CASE_FIXTURE(WindowFixture, "a screenshot that is missing or damaged is named, never an empty frame")
{
    openWindow();
    store().createProject("Thesis");
    const QUuid project = store().projects().first().id;
    const Checkpoint damaged = saveCheckpoint(project, "Damaged", 10);
    Checkpoint missing{.title = "Missing", .projectID = project, .screenshot = home.filePath("nowhere.png")};
    REQUIRE(store().save(missing));
    settle();
    REQUIRE(shownPicture(*this));
    CHECK(shownPicture(*this)->isUnavailable());
    picture("screenshot-unavailable");
    store().selectCheckpoint(damaged.id);
    settle();
    REQUIRE(shownPicture(*this));
    CHECK(eventually([this] { return shownPicture(*this)->isUnavailable(); }));
}

TEST_CASE_FIXTURE(WindowFixture, "a checkpoint is deleted only after the question was answered so")
{
    openWindow();
    store().createProject("Thesis");
    const QUuid project = store().projects().first().id;
    saveCheckpoint(project, "Older", 10);
    saveCheckpoint(project, "Newer", 20);
    settle();
    press(Qt::Key_Delete, Qt::ControlModifier);
    CHECK(seesText("Delete this checkpoint and its local recording?"));
    picture("delete-checkpoint");
    press(Qt::Key_Return); // Deleting wants its own button.
    CHECK(store().checkpoints().size() == 2);
    clickRow(list("Checkpoint history"), 1, Qt::RightButton);
    choose("Delete checkpoint…");
    CHECK(seesText(u"This removes “Older” and its local screenshot or recording."_qs));
    press(Qt::Key_Escape);
    CHECK(store().checkpoints().size() == 2);
    press(Qt::Key_Delete, Qt::ControlModifier);
    click("Delete checkpoint");
    REQUIRE(store().checkpoints().size() == 1);
    CHECK(seesText("1 saved"));
    CHECK(store().checkpoints().first().title == "Older");
}

TEST_CASE_FIXTURE(WindowFixture, "a project is deleted with all it holds only after the question was answered so")
{
    openWindow();
    store().createProject("Thesis");
    saveCheckpoint(store().projects().first().id, "Chapter", 10);
    click("All projects");
    click("Actions for Thesis");
    choose("Delete project…");
    CHECK(seesText(u"Delete “Thesis” and all 1 checkpoints, including their local screenshots and recordings? This "
                   "cannot be undone."_qs));
    press(Qt::Key_Escape);
    CHECK(store().projects().size() == 1);
    click("Actions for Thesis");
    choose("Delete project…");
    click("Delete project");
    CHECK(store().projects().isEmpty());
    CHECK(seesText("Create a project to save your first checkpoint."));
}

TEST_CASE_FIXTURE(WindowFixture, "the manager opens and deletes checkpoints, and shows when none is left")
{
    openWindow();
    store().createProject("Thesis");
    const QUuid project = store().projects().first().id;
    saveCheckpoint(project, "Older", 10);
    saveCheckpoint(project, "Newer", 20);
    settle();
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
        CHECK(store().checkpoints().size() == left - 1);
    }
    CHECK(seesText("No checkpoints"));
    picture("manager-empty");
    click("Done");
    CHECK(seesText("Your project is ready"));
}
