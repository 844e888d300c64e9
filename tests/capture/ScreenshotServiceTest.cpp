// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/CaptureService.h"

#include "support/BlockOn.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/support/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <new>

using namespace ardeno;

namespace {

// A screen whose displays show one colour each, or that fails as the test wants.
class PaintedScreen final : public ScreenCapture {
public:
    Capability availability() const override { return {}; }

    Capability exclusionAvailability() const override { return {}; }

    QList<CaptureDisplay> displays() override { return connected; }

    void prepareExclusion(const QSet<QString> &) override {}

    QCoro::Task<Canvas> compose(CanvasRequest request) override
    {
        asked = request;
        if (fail)
            fail();
        Canvas canvas;
        canvas.size = request.size;
        canvas.pixels = QByteArray(qsizetype(request.size.width()) * request.size.height() * 4 - missingBytes, '\x40');
        co_return canvas;
    }

    QList<CaptureDisplay> connected = {};
    CanvasRequest asked = {};
    std::function<void()> fail = {};
    int missingBytes = 0;
};

struct ScreenshotFixture {
    PaintedScreen screen = {};
    CaptureService service = CaptureService(screen);
    QTemporaryDir folder = {};
    QString path = folder.filePath("snapshot.png");

    // The failure's domain, code and sentence; empty when the picture was taken.
    QString outcome(QCoro::Task<void> task)
    {
        try {
            blockOn(std::move(task));
        } catch (const Failure &failure) {
            return QString("%1 %2: %3").arg(failure.domain()).arg(failure.code()).arg(failure.description());
        }
        return {};
    }
};

} // namespace

TEST_CASE_FIXTURE(ScreenshotFixture,
                  "all displays are composed where they stand, and only the user may read the picture")
{
    screen.connected = {{7, {0, 0, 1920, 1080}}, {9, {100, -800, 1280, 800}}};

    CHECK(outcome(service.screenshot(path, {"org.example.Chat"})) == "");

    CHECK(screen.asked.size == QSize(1920, 1880));
    CHECK(screen.asked.excludedAppIDs == QSet<QString>{"org.example.Chat"});
    REQUIRE(screen.asked.placements.size() == 2);
    CHECK(screen.asked.placements[0] == DisplayPlacement{screen.connected[0], {0, 800, 1920, 1080}});
    CHECK(screen.asked.placements[1] == DisplayPlacement{screen.connected[1], {100, 0, 1280, 800}});
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

    screen.connected = {{7, {0, 0, 0, 0}}};
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot canvas could not be created.");

    screen.connected = {{7, {0, 0, 64, 48}}};
    CHECK(outcome(service.verifyAccess()) == "");
    screen.fail = [] { throw std::bad_alloc(); };
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot canvas could not be created.");
    screen.fail = [] { throw Failure("Capture", 2, "The displays changed."); };
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The displays changed.");
    screen.fail = {};
    screen.missingBytes = 4;
    CHECK(outcome(service.screenshot(path, {})) == "Capture 2: The screenshot could not be created.");

    CHECK(fileBytes(path) == "old");
    CHECK(QDir(folder.path()).entryList(QDir::Files).size() == 1);
}

TEST_CASE_FIXTURE(ScreenshotFixture, "a folder that is not there is a failure and not a crash")
{
    screen.connected = {{7, {0, 0, 64, 48}}};
    CHECK(outcome(service.screenshot(folder.filePath("gone/snapshot.png"), {})).contains("No such file or directory"));
}
