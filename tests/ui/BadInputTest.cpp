// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/Faults.h"
#include "tests/ui/WindowFixture.h"
#include "ui/checkpoint/ScreenshotImage.h"

#include "ui/checkpoint/QuickListEditor.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QTest>
#include <QtEndian>

#include <sys/stat.h>

using namespace ardeno;

namespace {

struct BadInput : WindowFixture {
    QUuid project;

    void showPicture(Checkpoint checkpoint, const QString &path)
    {
        checkpoint.screenshot = path;
        REQUIRE(store().editing.save(checkpoint));
        settle();
        REQUIRE(find<ScreenshotImage>());
    }
};

// A picture of one bit a pixel whose pixels would fill sixteen gigabytes; its rows are missing.
QByteArray bomb()
{
    const auto chunk = [](const QByteArray &type, const QByteArray &data) {
        QByteArray bytes(4, '\0');
        qToBigEndian(quint32(data.size()), bytes.data());
        const QByteArray named = type + data;
        quint32 sum = 0xffffffffU;
        for (const char byte : named) {
            sum ^= uchar(byte);
            for (int bit = 0; bit < 8; ++bit)
                sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320U : 0U);
        }
        QByteArray check(4, '\0');
        qToBigEndian(~sum, check.data());
        return bytes + named + check;
    };
    const QByteArray side("\x00\x00\xff\xff", 4);
    return QByteArray("\x89PNG\r\n\x1a\n") + chunk("IHDR", side + side + QByteArray("\x01\x00\x00\x00\x00", 5)) +
           chunk("IDAT", qCompress(QByteArray(8192, '\0')).mid(4)) + chunk("IEND", {});
}

// A few kilobytes that take years to draw, or only to be measured.
QByteArray endlessDrawing()
{
    QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'>"
                         "<rect id='a0' width='1' height='1'/>";
    for (int level = 1; level < 24; ++level) {
        drawing += "<g id='a" + QByteArray::number(level) + "'>";
        for (int i = 0; i < 10; ++i)
            drawing += "<use xlink:href='#a" + QByteArray::number(level - 1) + "'/>";
        drawing += "</g>";
    }
    return drawing + "</svg>";
}

} // namespace

TEST_CASE_FIXTURE(BadInput, "names, notes and messages of any length leave the window as wide as it is")
{
    openWindow();
    const QString words = u"ein Wort مشروع 🚀 "_qs.repeated(700);
    for (const QString &text : {QString(10'000, 'W'), words, u"🚀"_qs.repeated(5000)}) {
        const QUuid id = *store().projects.createProject(text);
        store().projects.setProjectBlocker(id, text);
        Checkpoint checkpoint{.title = "a" + text, .projectID = id, .objective = text, .nextStep = text};
        REQUIRE(store().editing.save(checkpoint));
        window->resize(960, 690);
        settle();
        CHECK(window->width() == 960);
        for (const QWidget *const each : window->content()->findChildren<QWidget *>()) {
            if (each->isVisible() && each->mapTo(window->content(), QPoint(each->width(), 0)).x() > 960)
                FAIL_CHECK(each->metaObject()->className());
        }
        picture("long-word");
        store().messages.report("Could not update the project: " + text);
        settle();
        CHECK(window->sheets().topSheet()->width() == 420);
        CHECK(button("OK")->mapTo(window.get(), QPoint(0, 30)).y() < window->height());
        picture("long-error");
        press(Qt::Key_Return);
        store().sheets.askToDelete(*store().library.project(id));
        settle();
        CHECK(window->sheets().topSheet()->width() == 420);
        CHECK(button("Cancel")->mapTo(window.get(), QPoint(0, 30)).y() < window->height());
        press(Qt::Key_Escape);
        store().navigation.showProjects();
        settle();
        CHECK(window->width() == 960);
    }
}

TEST_CASE_FIXTURE(BadInput, "a note of a megabyte is pasted, written on and kept")
{
    for (const QString &text : {QString("word ").repeated(200'000), QString("a line of a list\n").repeated(60'000)}) {
        project = openProject();
        const Checkpoint checkpoint = saveCheckpoint(project, "One", 10);
        settle();
        QuickListEditor *const editor = note();
        editor->setFocus();
        QApplication::clipboard()->setText(text);
        editor->paste();
        type("x");
        CHECK(editor->text().size() >= text.size() + 1);
        CHECK(editor->height() == 260);
        press(Qt::Key_Escape);
        CHECK(store().library.checkpoint(checkpoint.id)->objective == editor->text());
        window.reset();
        store().deletion.deleteProject(project);
    }
}

TEST_CASE_FIXTURE(BadInput, "what is no picture of the checkpoint is named as unavailable, without waiting for it")
{
    project = openProject();
    const Checkpoint one = saveCheckpoint(project, "One", 10);
    const QString folder = QFileInfo(*one.screenshot).path() + '/';
    const QString pipe = folder + "pipe.png";
    REQUIRE(::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    QDir().mkpath(folder + "folder.png");
    writeFile(folder + "empty.png", {});
    writeFile(folder + "bomb.png", bomb());
    writeFile(folder + "drawing.svg", endlessDrawing());
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    REQUIRE(image.save(folder + "whole.png"));
    const QByteArray whole = fileBytes(folder + "whole.png");
    writeFile(folder + "cut.png", whole.left(whole.size() - 30));
    writeFile(home.filePath("elsewhere.png"), whole);
    QFile::link(home.filePath("elsewhere.png"), folder + "link.png");
    for (const QString &path : {pipe, folder + "folder.png", folder + "empty.png", folder + "bomb.png",
                                folder + "drawing.svg", folder + "cut.png", folder + "nowhere.png", folder + "link.png",
                                home.filePath("elsewhere.png"), home.path(), QString()}) {
        CAPTURE(path);
        showPicture(one, path);
        CHECK(eventually([this] { return find<ScreenshotImage>()->isUnavailable(); }));
    }
    faults::setThreads(false);
    showPicture(one, folder + "whole.png");
    const bool isNamed = eventually([this] { return find<ScreenshotImage>()->isUnavailable(); });
    faults::setThreads(true);
    CHECK_MESSAGE(isNamed, "no thread can be had to read it");
    showPicture(one, {});
    showPicture(one, folder + "whole.png");
    CHECK(eventually([this] { return find<ScreenshotImage>()->isShown(); }));
}

TEST_CASE_FIXTURE(BadInput, "a project that is deleted elsewhere while it is shown goes, with all that stands over it")
{
    project = openProject();
    saveCheckpoint(project, "One", 10);
    settle();
    click("Manage checkpoints");
    CHECK(window->sheets().isCovering());
    store().deletion.deleteProject(project);
    settle();
    CHECK_FALSE(window->sheets().isCovering());
    CHECK(seesText("Create a project to save your first checkpoint."));

    project = *store().projects.createProject("Garden");
    saveCheckpoint(project, "One", 10);
    settle();
    QTest::mouseClick(note()->viewport(), Qt::LeftButton);
    type("typed");
    store().deletion.deleteProject(project);
    settle();
    CHECK(store().library.checkpoints().isEmpty());
    CHECK_FALSE(store().messages.error());

    project = *store().projects.createProject("Release");
    settle();
    click("Mark blocked…");
    store().deletion.deleteProject(project);
    settle();
    CHECK_FALSE(window->sheets().isCovering());
    press(Qt::Key_N, Qt::ControlModifier);
    CHECK(window->sheets().isCovering());
}

TEST_CASE_FIXTURE(BadInput, "the manager shows pictures of its rows, and a menu where the pointer is")
{
    project = openProject();
    QImage image(640, 400, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (int i = 0; i < 3; ++i) {
        const Checkpoint checkpoint = saveCheckpoint(project, QString("Checkpoint %1").arg(i), 10 + i);
        REQUIRE(image.save(*checkpoint.screenshot));
    }
    settle();
    click("Manage checkpoints");
    const auto redRows = [this] {
        const QImage shown = list("Checkpoints")->viewport()->grab().toImage();
        int rows = 0;
        for (int y = 28; y < shown.height(); y += 56)
            rows += shown.pixelColor(40, y) == QColor(Qt::red) ? 1 : 0;
        return rows;
    };
    CHECK(eventually([&] { return redRows() == 3; }));
    picture("manager-pictures");
    QListView *const rows = list("Checkpoints");
    for (const int row : {1, 2}) { // The one that is pointed at has a button, and the one that is chosen.
        QTest::mouseMove(rows->viewport(), rows->visualRect(rows->model()->index(row, 0)).center());
        const QString name = QString("Actions for Checkpoint %1").arg(2 - row);
        CHECK(eventually([&] { return findButton(name) != nullptr; }));
    }
    CHECK(findButton("Actions for Checkpoint 2"));
    CHECK_FALSE(findButton("Actions for Checkpoint 1"));
}
