// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureService.h"

#include "support/BlockOn.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"
#include "tests/support/FailureOf.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <new>

using namespace ardeno;

namespace {

struct ScreenshotFixture {
    fakes::InMemoryDesktop memory = {};
    Desktop desktop = memory.makeDesktop();
    CaptureService service = CaptureService(*desktop.screenCapture);
    QTemporaryDir folder = {};
    QString path = folder.filePath("snapshot.png");

    static QString outcome(QCoro::Task<void> task)
    {
        return wholeFailureOf([&] { blockOn(std::move(task)); });
    }

    void connect(const WindowRect &bounds)
    {
        memory.displays.clear();
        memory.addDisplay(7, bounds);
    }
};

} // namespace

TEST_CASE_FIXTURE(ScreenshotFixture,
                  "all displays are composed where they stand, and only the user may read the picture")
{
    memory.addDisplay(7, {0, 0, 1920, 1080});
    memory.addDisplay(9, {100, -800, 1280, 800});

    CHECK(outcome(service.screenshot(path, {"org.example.Chat"})) == "");

    const CanvasRequest asked = memory.requests.last();
    CHECK(asked.size == QSize(1920, 1880));
    CHECK(asked.excludedAppIDs == QSet<QString>{"org.example.Chat"});
    REQUIRE(asked.placements.size() == 2);
    CHECK(asked.placements[0] == DisplayPlacement{{7, {0, 0, 1920, 1080}}, {0, 800, 1920, 1080}});
    CHECK(asked.placements[1] == DisplayPlacement{{9, {100, -800, 1280, 800}}, {100, 0, 1280, 800}});
    CHECK(QImage(path).size() == QSize(1920, 1880));
    CHECK(QImage(path).pixel(3, 3) == 0xff404040);
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    CHECK(int(QFile::permissions(path) & others) == 0);
}

TEST_CASE_FIXTURE(ScreenshotFixture, "each way to have no picture has its own sentence and leaves the old file alone")
{
    writeFile(path, "old");

    CHECK(outcome(service.screenshot(path, {})) == "Capture 1: No display is available to capture.");
    CHECK(outcome(service.verifyAccess()) == "Capture 1: No display is available.");

    connect({0, 0, 0, 0});
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot canvas could not be created.");

    connect({0, 0, 64, 48});
    CHECK(outcome(service.verifyAccess()) == "");
    memory.whileComposing = [] { throw std::bad_alloc(); };
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot canvas could not be created.");
    memory.whileComposing = {};
    memory.pictureFailure = Failure("Capture", 2, "The displays changed.");
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The displays changed.");
    memory.pictureFailure.reset();
    memory.missingBytes = 4;
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot could not be created.");

    CHECK(fileBytes(path) == "old");
    CHECK(QDir(folder.path()).entryList(QDir::Files).size() == 1);
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a folder that is not there is a failure and not a crash")
{
    connect({0, 0, 64, 48});
    CHECK(outcome(service.screenshot(folder.filePath("gone/snapshot.png"), {})).contains("No such file or directory"));
}
