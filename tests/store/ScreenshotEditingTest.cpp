// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PngWriter.h"
#include "media/ThumbnailCache.h"
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

using namespace ardeno;

namespace {

struct ScreenshotFixture : StoreFixture {
    QUuid project = *store().projects.createProject("Thesis");
    Checkpoint saved = saveCheckpoint(project, "one", 1);
    QString image = home.filePath("image.png");

    ScreenshotFixture() { writeFile(image, PngWriter::encoded({2, 2}, QByteArray(16, '\x40'))); }

    const Checkpoint &now() { return *store().library.checkpoint(saved.id); }

    QStringList media() const { return QDir(mediaFolder(saved)).entryList(QDir::Files | QDir::Hidden); }

    void pointTo(const QString &path)
    {
        saved.screenshot = path;
        REQUIRE(store().editing.save(saved));
    }
};

const QString outside = "Could not remove a screenshot outside this checkpoint’s storage folder.";

} // namespace

TEST_CASE_FIXTURE(ScreenshotFixture, "an imported image takes the place of the screenshot")
{
    blockOn(store().screenshots.importScreenshot(image, saved.id));
    CHECK(store().messages.notice() == "Image added. A copy is saved with this checkpoint.");
    CHECK_FALSE(store().messages.error().has_value());
    REQUIRE(now().screenshot.has_value());
    CHECK(now().screenshot->startsWith(mediaFolder(saved) + "/image-"));
    CHECK(QFile::exists(image));
    reopen();
    CHECK_MESSAGE(media() == QStringList{QFileInfo(*now().screenshot).fileName()}, "nothing can be undone any more");
    CHECK(fileBytes(*now().screenshot).startsWith("\x89PNG"));
}

TEST_CASE_FIXTURE(ScreenshotFixture, "an image that cannot be imported changes nothing, and says why")
{
    writeFile(image, "words");
    blockOn(store().screenshots.importScreenshot(image, saved.id));
    CHECK(store().messages.error() ==
          "This file could not be opened as an image. Choose a PNG, JPEG, HEIC or another supported image.");
    blockOn(store().screenshots.importScreenshot(home.filePath("missing.png"), saved.id));
    CHECK(store().messages.error() == "Could not add the image: No such file or directory.");
    CHECK(now() == saved);
    CHECK(media() == QStringList{"snapshot.png"});
}

TEST_CASE_FIXTURE(ScreenshotFixture, "an import that is stopped leaves the picture as it was")
{
    QCoro::Task<Outcome> importing = store().screenshots.importScreenshot(image, saved.id);
    CHECK(store().screenshots.addingPictures() == QList<QUuid>{saved.id});
    store().screenshots.stopAddingPicture(saved.id);
    blockOn(std::move(importing));
    CHECK(store().messages.notice() == "Stopped. The image was not added.");
    CHECK_FALSE(store().messages.error().has_value());
    CHECK(store().screenshots.addingPictures().isEmpty());
    CHECK(now() == saved);
    CHECK(media() == QStringList{"snapshot.png"});
}

TEST_CASE_FIXTURE(ScreenshotFixture,
                  "an image whose checkpoint cannot be written, or was deleted meanwhile, goes again")
{
    QCoro::Task<Outcome> importing = store().screenshots.importScreenshot(image, saved.id);
    store().deletion.deleteCheckpoint(saved.id);
    blockOn(std::move(importing));
    CHECK_FALSE(QFile::exists(mediaFolder(saved)));
    CHECK(store().library.checkpoints().isEmpty());

    saved = saveCheckpoint(project, "two", 2);
    breakLibrary();
    blockOn(store().screenshots.importScreenshot(image, saved.id));
    CHECK(store().messages.error()->startsWith("Could not save this checkpoint: "));
    CHECK(media() == QStringList{"snapshot.png"});
    CHECK(now() == saved);
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a previous image outside the folder is left alone by an import")
{
    const QString elsewhere = home.filePath("elsewhere.png");
    writeFile(elsewhere, "mine");
    pointTo(elsewhere);
    blockOn(store().screenshots.importScreenshot(image, saved.id));
    CHECK(store().messages.notice() == "Image added. A copy is saved with this checkpoint.");
    CHECK(fileBytes(elsewhere) == "mine");
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a removed screenshot leaves the library and the disk")
{
    const ThumbnailCache cache(home.filePath("thumbnails"));
    const FileStamp stamp = *FileStamp::ofFile(*saved.screenshot);
    cache.keep(*saved.screenshot, stamp, {{1, 1}, QByteArray(4, 'x')});
    REQUIRE(cache.find(*saved.screenshot, stamp).has_value());

    store().screenshots.removeScreenshot(saved.id);
    CHECK(store().messages.notice() == "Screenshot removed. Your notes and workspace are saved.");
    CHECK_FALSE(now().screenshot.has_value());
    CHECK(!QFile::exists(*saved.screenshot));
    CHECK_MESSAGE(!cache.find(*saved.screenshot, stamp), "no small copy of it lives on");

    pointTo(mediaFolder(saved) + "/gone.png");
    store().screenshots.removeScreenshot(saved.id);
    CHECK_FALSE(now().screenshot.has_value());
    CHECK_FALSE(store().messages.error().has_value());
    opened.reset();
    CHECK(media().isEmpty());
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a picture that was removed or replaced comes back, and so does what replaced it")
{
    const auto shown = [this] { return fileBytes(now().screenshot.value_or(QString())); };
    store().screenshots.removeScreenshot(saved.id);
    CHECK(store().removals.lastRemoval() == WorkspaceRemoval{saved.id, {RemovedPicture{*saved.screenshot}}});
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(now() == saved);
    CHECK(shown() == "picture of one");
    CHECK(media() == QStringList{"snapshot.png"});
    CHECK_FALSE(store().removals.lastRemoval().has_value());
    CHECK_MESSAGE(!store().messages.notice(), "that it was removed is not true any more");

    blockOn(store().screenshots.importScreenshot(image, saved.id));
    const QByteArray imported = shown();
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(shown() == "picture of one");
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(shown() == imported);
    CHECK(store().removals.undoWorkspaceRemoval());

    // What was removed first is not forgotten for what was added since.
    store().screenshots.removeScreenshot(saved.id);
    blockOn(store().screenshots.importScreenshot(image, saved.id));
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(shown() == "picture of one");
    CHECK(store().editing.updateNote(&Checkpoint::objective, "typed", saved.id));
    reopen();
    CHECK(shown() == "picture of one");
    CHECK(media() == QStringList{"snapshot.png"});
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a picture that cannot come back any more leaves the disk")
{
    const Checkpoint other = saveCheckpoint(project, "other", 2);
    saved.apps = {{"org.editor", "Editor"}};
    REQUIRE(store().editing.save(saved));
    const auto leave = [&](const std::function<void()> &act) {
        REQUIRE(store().screenshots.removeScreenshot(saved.id));
        CHECK(media() == QStringList{".snapshot.png.removing"});
        act();
        CHECK(media().isEmpty());
        reopen();
        CHECK_FALSE(store().removals.lastRemoval().has_value());
        writeFile(*saved.screenshot, "picture of one");
        REQUIRE(store().editing.save(saved));
    };
    leave([&] { REQUIRE(store().workspace.removeApp(saved.apps.first(), saved.id)); });
    leave([&] { REQUIRE(store().screenshots.removeScreenshot(other.id)); });
    leave([&] { opened.reset(); });
    leave([&] { REQUIRE(store().deletion.deleteCheckpoint(saved.id)); });
    leave([&] { REQUIRE(store().deletion.deleteProject(project)); });
}

TEST_CASE_FIXTURE(ScreenshotFixture, "an undo that cannot be written, or was made by another program, loses no picture")
{
    const QByteArray before = fileBytes(libraryPath());
    store().screenshots.removeScreenshot(saved.id);
    const QByteArray without = fileBytes(libraryPath());
    breakLibrary();
    CHECK_FALSE(store().removals.undoWorkspaceRemoval());
    CHECK(store().messages.error()->startsWith("Could not bring the screenshot back: "));
    CHECK(media() == QStringList{".snapshot.png.removing"});
    REQUIRE(QDir(libraryPath()).removeRecursively());
    writeFile(libraryPath(), without);
    CHECK(store().removals.undoWorkspaceRemoval());
    CHECK(fileBytes(*saved.screenshot) == "picture of one");

    store().screenshots.removeScreenshot(saved.id);
    REQUIRE(QFile::remove(libraryPath())); // Else it would be the same file with another content.
    writeFile(libraryPath(), before);
    store().projects.createProject("Second");
    CHECK(now().screenshot == saved.screenshot);
    CHECK(fileBytes(*saved.screenshot) == "picture of one");
    CHECK_FALSE(store().removals.lastRemoval().has_value());
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a file outside the checkpoint's folder, or behind a link, is never deleted")
{
    const QString precious = home.filePath("precious.png");
    writeFile(precious, "precious");
    const Checkpoint other = saveCheckpoint(project, "other", 2);
    const QString inner = mediaFolder(saved) + "/inner/precious.png";
    writeFile(inner, "precious");
    QFile::link(precious, mediaFolder(saved) + "/link.png");
    QFile::link(*saved.screenshot, mediaFolder(saved) + "/own.png");
    QFile::link(home.path(), mediaFolder(saved) + "/folder");
    const QString name = mediaFolder(saved);
    for (const QString &path :
         {precious, *other.screenshot, inner, name + "/link.png", name + "/own.png", name + "/folder/precious.png",
          name + "/../../precious.png", name + "/inner", QString("precious.png"), QString()}) {
        CAPTURE(path);
        pointTo(path);
        store().screenshots.removeScreenshot(saved.id);
        CHECK(store().messages.error() == outside);
        CHECK(now().screenshot == path);
    }
    CHECK(fileBytes(precious) == "precious");
    CHECK(fileBytes(inner) == "precious");
    CHECK(media() == QStringList{"link.png", "own.png", "snapshot.png"});
    CHECK(QFile::exists(*other.screenshot));

    // The media folder itself leads elsewhere.
    const QString moved = home.filePath("moved");
    REQUIRE(QFile::rename(mediaFolder(saved), moved));
    QFile::link(moved, mediaFolder(saved));
    pointTo(mediaFolder(saved) + "/snapshot.png");
    store().screenshots.removeScreenshot(saved.id);
    CHECK(store().messages.error() == outside);
    CHECK(QFile::exists(moved + "/snapshot.png"));
}

TEST_CASE_FIXTURE(ScreenshotFixture, "of two images that are added one after the other the later one stays")
{
    // The first takes much longer than the second.
    const QString large = home.filePath("large.png");
    writeFile(large, PngWriter::encoded({4000, 4000}, QByteArray(4000 * 4000 * 4, '\x20')));
    auto first = store().screenshots.importScreenshot(large, saved.id);
    auto second = store().screenshots.importScreenshot(image, saved.id);
    const bool isSecondAdded = blockOn(std::move(second)).isDone;
    const std::optional<QString> picture = now().screenshot;
    blockOn(std::move(first));
    CHECK(isSecondAdded);
    CHECK(now().screenshot == picture);
    CHECK_FALSE(store().messages.error());
    CHECK(media().filter("image-").size() == 1);
}
