// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QTest>
#include <QUrl>

using namespace ardeno;

namespace {

struct OddWays : WindowFixture {
    OddWays() { hasSheets = true; }

    ~OddWays() override { QApplication::clipboard()->clear(); }

    QString shown()
    {
        return store().navigation.selectedProject() ? store().navigation.selectedProject()->name : QString();
    }

    QString imageFile() const
    {
        const QString path = home.filePath("image.png");
        writeFile(path, PngWriter::encoded({2, 2}, QByteArray(16, '\x40')));
        return path;
    }
};

} // namespace

TEST_CASE_FIXTURE(OddWays, "what goes or comes below the keys leaves page and highlight together")
{
    openProjects();
    QListView *const projects = list("Projects");
    projects->setFocus(Qt::TabFocusReason);
    QTest::keyClick(projects, Qt::Key_Up);
    store().deletion.deleteProject(
        store().library.projects().at(2).id); // Where the keys are, before the page has followed.
    REQUIRE(comesToRest(projects));
    CHECK(shown() == selectedRow(projects));
    CHECK_FALSE(shown().isEmpty());

    QTest::keyClick(projects, Qt::Key_Home);
    store().navigation.setSearch("boo"); // The row is no longer listed.
    REQUIRE(comesToRest(projects));
    CHECK((selectedRow(projects).isEmpty() || shown() == selectedRow(projects)));
    store().navigation.setSearch({});
    settle();
    CHECK(shown() == selectedRow(projects));

    QTest::keyClick(projects, Qt::Key_Home);
    store().projects.reorderProjects(store().library.projects().last().id, store().library.projects().first().id, [&] {
        QList<QUuid> ids;
        for (const Project &project : store().library.projects())
            ids << project.id;
        return ids;
    }());
    REQUIRE(comesToRest(projects));
    CHECK(shown() == selectedRow(projects));
    CHECK(shown() == "Apples");
}

TEST_CASE_FIXTURE(OddWays, "an image on the clipboard goes to the picture below the pointer, a text to the field")
{
    const Checkpoint checkpoint = saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    auto *const search = qobject_cast<QLineEdit *>(widget("Find a project"));
    search->setFocus();
    QWidget *const card = button("Replace image…")->parentWidget()->parentWidget();
    const QPoint place = card->mapToGlobal(card->rect().center());
    QProcess::execute("xdotool", {"mousemove", QString::number(place.x()), QString::number(place.y())});
    REQUIRE(eventually([&] { return card->underMouse(); }));
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QApplication::clipboard()->setImage(image);
    press(Qt::Key_V, Qt::ControlModifier);
    CHECK(eventually([&] { return store().library.checkpoint(checkpoint.id)->screenshot != checkpoint.screenshot; }));
    CHECK(search->text().isEmpty());
    const std::optional<QString> added = store().library.checkpoint(checkpoint.id)->screenshot;
    QApplication::clipboard()->setText("Chap");
    press(Qt::Key_V, Qt::ControlModifier);
    CHECK(search->text() == "Chap");
    // A file that was copied is no text below the pointer, and one elsewhere.
    const auto copyFile = [](const QString &path) {
        auto *const copied = new QMimeData;
        copied->setText(path);
        copied->setUrls({QUrl::fromLocalFile(path)});
        copied->setData("x-special/gnome-copied-files", "copy\nfile://" + path.toUtf8());
        QApplication::clipboard()->setMimeData(copied);
    };
    copyFile(imageFile());
    press(Qt::Key_V, Qt::ControlModifier);
    REQUIRE(eventually([&] { return store().library.checkpoint(checkpoint.id)->screenshot != added; }));
    const std::optional<QString> copied = store().library.checkpoint(checkpoint.id)->screenshot;
    CHECK(search->text() == "Chap");
    QProcess::execute("xdotool", {"mousemove", "1900", "1060"});
    REQUIRE(eventually([&] { return !card->underMouse(); }));
    press(Qt::Key_V, Qt::ControlModifier);
    CHECK(search->text().size() > 4);
    CHECK(store().library.checkpoint(checkpoint.id)->screenshot == copied);
}

TEST_CASE_FIXTURE(OddWays, "the undo key leaves the looks of a note alone")
{
    saveCheckpoint(openProject(), "Chapter", 10);
    settle();
    QuickListEditor *const editor = note();
    editor->setFocus();
    for (int round = 0; round < 3; ++round)
        press(Qt::Key_Z, Qt::ControlModifier);
    CHECK(editor->document()->documentMargin() == 0);
}

TEST_CASE_FIXTURE(OddWays,
                  "an archived project that is renamed, deleted or archived again is never spoken of by an old name")
{
    openProjects();
    const QUuid id = store().library.projects().first().id;
    store().projects.setProjectArchived(id, true);
    store().projects.renameProject(id, "Pears");
    settle();
    CHECK(seesText(u"“Pears” is in the archive now."_qs));
    store().projects.setProjectArchived(id, false);
    settle();
    press(Qt::Key_Z, Qt::ControlModifier);
    CHECK(store().library.project(id)->archivedAt);
    store().projects.setProjectArchived(id, true);
    store().deletion.deleteProject(id);
    settle();
    press(Qt::Key_Z, Qt::ControlModifier);
    CHECK_FALSE(seesText(u"“Pears” is in the archive now."_qs));
    CHECK(store().library.projects().size() == 3);
}

TEST_CASE_FIXTURE(OddWays, "a search of spaces, a pasted line break and what is found by nothing do no harm")
{
    openProjects();
    auto *const search = qobject_cast<QLineEdit *>(widget("Find a project"));
    search->setFocus();
    type("   ");
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    settle();
    CHECK(QApplication::focusWidget() != nullptr);
    press(Qt::Key_F, Qt::ControlModifier);
    QApplication::clipboard()->setText("Boo\n");
    press(Qt::Key_V, Qt::ControlModifier);
    CHECK(list("Projects")->model()->rowCount() == 1);
    press(Qt::Key_Return);
    CHECK(shown() == "Books");
}
