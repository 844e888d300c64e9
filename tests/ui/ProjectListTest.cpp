// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/ui/WindowFixture.h"

#include "ui/checkpoint/ScreenshotCard.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QTest>

using namespace ardeno;

namespace {

struct ProjectListFixture : WindowFixture {
    void openProjects() { WindowFixture::openProjects({"A", "B", "C", "D"}); }

    // By the X server's own pointer, since a drag takes no other: from the middle of one row to that of another.
    void dragRow(int from, int to) const
    {
        QListView *const projects = list("Projects");
        const auto center = [&](int row) {
            const QRect rect = projects->visualRect(projects->model()->index(row, 0));
            return projects->viewport()->mapToGlobal(rect.center());
        };
        const auto at = [](const QPoint &place) {
            return QStringList{"mousemove", QString::number(place.x()), QString::number(place.y()), "sleep", "0.03"};
        };
        const QPoint start = center(from);
        const QPoint end = center(to);
        QStringList way = at(start) + QStringList{"mousedown", "1"};
        for (int step = 1; step <= 20; ++step)
            way += at(start + (end - start) * step / 20);
        way += at(end) + QStringList{"mouseup", "1"};
        QProcess pointer;
        pointer.start("xdotool", way);
        REQUIRE(eventually([&] { return pointer.state() == QProcess::NotRunning; }));
    }

    QString order() const { return namesOf(opened->library.projects()).join(""); }

    QString highlighted() const { return selectedRow(list("Projects")); }

    void drop(const QMimeData &data) const
    {
        auto *const card = find<ScreenshotCard>();
        REQUIRE(card);
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(card, &enter);
        if (!enter.isAccepted())
            return;
        QDropEvent dropped(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(card, &dropped);
    }
};

QImage plain(const QColor &color)
{
    QImage image(32, 20, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

TEST_CASE_FIXTURE(ProjectListFixture, "a project is dragged by one place or to the very end, and the page stays")
{
    openProjects();
    dragRow(0, 1);
    CHECK(eventually([this] { return order() == "BACD"; }));
    dragRow(1, 3);
    CHECK(eventually([this] { return order() == "BCDA"; }));
    dragRow(3, 2);
    CHECK(eventually([this] { return order() == "BCAD"; }));
    CHECK(highlighted() == "D");
    CHECK(store().navigation.selectedProject()->name == "D");
    CHECK(list("Projects")->currentIndex().data().toString() == "D");

    // The keys go the same ways, and no further than the ends.
    list("Projects")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::AltModifier);
    CHECK(order() == "BCAD");
    for (int step = 0; step < 4; ++step)
        press(Qt::Key_Up, Qt::AltModifier);
    CHECK(order() == "DBCA");
    for (int step = 0; step < 3; ++step)
        press(Qt::Key_Down, Qt::AltModifier);
    CHECK(order() == "BCAD");
    // Only among what is seen.
    store().projects.setProjectArchived(store().library.projects().first().id, true);
    store().navigation.showProjects();
    store().navigation.selectProject(store().library.projects().at(1).id);
    settle();
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    CHECK(order() == "BADC");
}

TEST_CASE_FIXTURE(ProjectListFixture,
                  "the page and the list stay together when a project is archived, and it is undone")
{
    openProjects();
    const auto [older, newer] = saveTwoCheckpoints();
    store().navigation.selectCheckpoint(older.id);
    settle();
    clickRow(list("Projects"), 3, Qt::RightButton);
    choose("Archive project");
    CHECK_FALSE(store().navigation.selectedProjectID());
    CHECK(findButton("Open project A"));
    CHECK(highlighted().isEmpty());
    CHECK(list("Projects")->currentIndex().data().toString() == "C"); // Where the keys go on.
    CHECK(seesText(u"“D” is in the archive now."_qs));
    pictures("archived-undo");
    click("Undo");
    CHECK(highlighted() == "D");
    CHECK(store().navigation.selected()->id == older.id);
    CHECK_FALSE(store().navigation.selectedProject()->archivedAt);
    CHECK_FALSE(findButton("Undo"));

    // The way back from the archive is one, too.
    store().projects.setProjectArchived(*newer.projectID, true);
    const std::optional<Date> since = store().library.project(*newer.projectID)->archivedAt;
    store().navigation.selectProject(*newer.projectID);
    settle();
    CHECK(seesText("ARCHIVED"));
    click("Unarchive project");
    CHECK(seesText("PROJECTS"));
    CHECK(highlighted() == "D");
    CHECK(seesText(u"“D” is back among your projects."_qs));
    click("Undo");
    CHECK(seesText("ARCHIVED"));
    CHECK(highlighted() == "D");
    CHECK(store().library.project(*newer.projectID)->archivedAt == since);
    // One that is not shown leaves the page alone; a deleted one cannot come back.
    store().navigation.selectProject(store().library.projects().first().id);
    store().projects.setProjectArchived(store().library.projects().at(1).id, true);
    settle();
    CHECK(highlighted() == "A");
    store().deletion.deleteProject(store().library.projects().at(1).id);
    settle();
    CHECK_FALSE(findButton("Undo"));
}

TEST_CASE_FIXTURE(ProjectListFixture, "a project gets another name by a key or its menu, but not that of another one")
{
    openProjects();
    list("Projects")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F2);
    CHECK(seesText("Rename project"));
    pictures("rename");
    type("Z");
    press(Qt::Key_Return);
    CHECK(order() == "ABCZ");
    CHECK(CheckpointRepository(root()).loadLibrary().projects.last().name == "Z");
    CHECK(highlighted() == "Z");
    CHECK(QApplication::focusWidget() == list("Projects"));

    clickRow(list("Projects"), 1, Qt::RightButton);
    choose("Rename project…");
    type("a ");
    press(Qt::Key_Return);
    CHECK(seesText(u"There is a project named “A” already."_qs));
    press(Qt::Key_Return);
    CHECK(seesText("Rename project"));
    widget("Project name")->setFocus();
    qobject_cast<QLineEdit *>(widget("Project name"))->clear();
    CHECK(isOff("Rename"));
    type("b"); // Its own, written otherwise.
    press(Qt::Key_Return);
    CHECK(order() == "AbCZ");
    store().navigation.showProjects();
    settle();
    widget("Open project A")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_F2);
    CHECK(seesText("Rename project"));
}

TEST_CASE_FIXTURE(ProjectListFixture, "what vanishes leaves the focus at its neighbour; a moved tile is in view")
{
    openProjects();
    store().navigation.showProjects();
    settle();
    widget("Open project D")->setFocus(Qt::TabFocusReason);
    store().deletion.deleteProject(store().library.projects().last().id);
    settle();
    CHECK(QApplication::focusWidget() == widget("Open project C"));
    store().projects.setProjectArchived(store().library.projects().first().id, true);
    settle();
    CHECK(QApplication::focusWidget() == widget("Open project C"));
    store().deletion.deleteProject(store().library.projects().at(1).id);
    settle();
    CHECK(QApplication::focusWidget() == widget("Open project C"));

    store().navigation.selectProject(store().library.projects().last().id);
    for (int i = 0; i < 20; ++i)
        saveCheckpoint(*store().navigation.selectedProjectID(), QString("Step %1").arg(i), 100 + i);
    Checkpoint moved = saveCheckpoint(*store().navigation.selectedProjectID(), "Moved", 500);
    store().navigation.selectCheckpoint(moved.id);
    settle();
    QListView *const strip = list("Checkpoint history");
    moved.createdAt = {1};
    REQUIRE(store().editing.save(moved));
    settle();
    const QRect tile = strip->visualRect(strip->model()->index(20, 0));
    CHECK(strip->viewport()->rect().contains(tile.center()));
}

TEST_CASE_FIXTURE(ProjectListFixture, "an image of another application is dropped or pasted onto the picture")
{
    openProjects();
    const Checkpoint checkpoint = saveCheckpoint(*store().navigation.selectedProjectID(), "Chapter", 10);
    settle();
    const auto color = [&] {
        return QImage(store().media.screenshotFile(*store().library.checkpoint(checkpoint.id)).value_or(QString()))
            .pixelColor(5, 5);
    };
    const QString file = home.filePath("red.png");
    REQUIRE(plain(Qt::red).save(file));
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(file)});
    drop(dragged);
    CHECK(eventually([&] { return color() == QColor(Qt::red); }));
    QMimeData text;
    text.setText("no image");
    drop(text);
    QMimeData several;
    several.setUrls({QUrl::fromLocalFile(file), QUrl::fromLocalFile(file)});
    drop(several);
    CHECK_FALSE(store().messages.error());

    QApplication::clipboard()->setImage(plain(Qt::blue));
    QCursor::setPos(window->mapToGlobal(QPoint(5, 5))); // Not over the picture.
    button("Replace image…")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_V, Qt::ControlModifier);
    CHECK(eventually([&] { return color() == QColor(Qt::blue); }));
    CHECK(QDir(QDir::tempPath()).entryList({"ardeno-*"}, QDir::Files).isEmpty());

    writeFile(home.filePath("words.png"), "words");
    QMimeData broken;
    broken.setUrls({QUrl::fromLocalFile(home.filePath("words.png"))});
    drop(broken);
    CHECK(eventually([this] { return store().messages.error().has_value(); }));
    CHECK(color() == QColor(Qt::blue));
}
