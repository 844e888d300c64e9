// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/Faults.h"
#include "tests/ui/CutTexts.h"
#include "tests/ui/WindowFixture.h"
#include "ui/theme/AppTheme.h"
#include "ui/viewer/PicturePreviews.h"
#include "ui/viewer/ScreenshotViewer.h"

#include <QApplication>
#include <QLabel>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

using namespace ardeno;

namespace {

// Lines and letters, as screens have them.
QImage paintedScreens(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient background(0, 0, size.width(), size.height());
    background.setColorAt(0, QColor(60, 88, 140));
    background.setColorAt(1, QColor(150, 130, 180));
    painter.fillRect(image.rect(), background);
    const QRect page(size.width() / 20, size.height() / 10, size.width() / 2, size.height() * 7 / 10);
    painter.fillRect(page, Qt::white);
    painter.setFont(QFont("DejaVu Sans", 18));
    for (int y = page.top() + 40; y < page.bottom(); y += 34)
        painter.drawText(page.left() + 30, y, "A line of small letters that should stay readable as long as possible");
    return image;
}

struct ViewerFixture : WindowFixture {
    QTemporaryDir pictures;
    ScreenshotViewers viewers;
    ScreenshotViewer *viewer = nullptr;

    QString written(const QImage &image, const QString &name = "picture.png")
    {
        const QString path = pictures.filePath(name);
        REQUIRE(image.save(path));
        return path;
    }

    ScreenshotCanvas &canvas() { return viewer->canvas(); }

    void openViewer(const QString &path)
    {
        viewer = viewers.show(path);
        REQUIRE(QTest::qWaitForWindowActive(viewer));
        REQUIRE(eventually([this] { return canvas().isUnavailable() || canvas().isSharp(); }));
    }

    QString percentText() const
    {
        for (const QLabel *const label : viewer->findChildren<QLabel *>()) {
            if (label->isVisible() && label->text().endsWith('%'))
                return label->text();
        }
        return {};
    }

    void pressButton(const QString &name)
    {
        for (QAbstractButton *const each : viewer->findChildren<QAbstractButton *>()) {
            if (each->text() == name || each->accessibleName() == name)
                QTest::mouseClick(each, Qt::LeftButton);
        }
        settle();
    }

    void wheel(int angle, Qt::KeyboardModifiers modifiers, const QPoint &place)
    {
        QWidget *const target = canvas().viewport();
        QWheelEvent event(place, target->mapToGlobal(place), {}, {0, angle}, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(target, &event);
        settle();
    }

    void touchpad(Qt::NativeGestureType type, double value)
    {
        QWidget *const target = canvas().viewport();
        const QPointF place = target->rect().center();
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, place, place,
                                  target->mapToGlobal(place), value, {});
        QApplication::sendEvent(target, &event);
        settle();
    }

    void viewerPicture(const QString &name)
    {
        QDir().mkpath(ARDENO_PICTURES);
        CHECK(viewer->grab().save(QString(ARDENO_PICTURES "/%1.png").arg(name)));
    }

    // The colour that is seen at a place of the viewport.
    QString seen(const QPoint &place) { return canvas().viewport()->grab().toImage().pixelColor(place).name(); }
};

} // namespace

TEST_CASE_FIXTURE(ViewerFixture, "the screenshot of a checkpoint opens in one window of its own")
{
    hasSettings = true;
    const QUuid project = openProject();
    const Checkpoint checkpoint = saveCheckpoint(project, "Start", 1000);
    REQUIRE(paintedScreens({1920, 1080}).save(*checkpoint.screenshot));
    REQUIRE(store().editing.save(checkpoint));
    restart();
    store().navigation.selectProject(project);
    REQUIRE(eventually([&] { return !PicturePreviews::find(*checkpoint.screenshot).isNull(); }));
    click("Expand");
    const auto openViewers = [] {
        QList<ScreenshotViewer *> found;
        for (QWidget *const candidate : QApplication::topLevelWidgets()) {
            if (auto *const each = dynamic_cast<ScreenshotViewer *>(candidate); each && each->isVisible())
                found << each;
        }
        return found;
    };
    REQUIRE(openViewers().size() == 1);
    CHECK(openViewers().first()->windowTitle() == "Checkpoint screenshot");
    CHECK(openViewers().first()->size() == QSize(1180, 780));
    CHECK(openViewers().first()->canvas().hasPreview()); // The picture in the window, until the file is read.
    click("Expand");
    CHECK(openViewers().size() == 1);
    REQUIRE(eventually([&] { return openViewers().first()->isActiveWindow(); }));
    QTest::keyClick(openViewers().first(), Qt::Key_Escape);
    CHECK(eventually([&] { return openViewers().isEmpty(); }));
}

TEST_CASE_FIXTURE(ViewerFixture, "buttons, wheel, pinch, double click and keys zoom")
{
    openViewer(written(paintedScreens({6000, 2000})));
    CHECK(percentText() == "18%");
    viewerPicture("viewer-light");
    pressButton("Zoom in");
    CHECK(percentText() == "23%");
    pressButton("Zoom out");
    pressButton("Zoom out");
    CHECK(percentText() == "15%");
    pressButton("100%");
    CHECK(percentText() == "100%");
    pressButton("Fit");
    CHECK(percentText() == "18%");

    const QPoint place = canvas().viewport()->rect().center() + QPoint(100, 20);
    wheel(120, Qt::ControlModifier, place);
    CHECK(canvas().scale() == doctest::Approx(1132.0 / 6000 * 1.25).epsilon(0.001));
    wheel(-60, Qt::ControlModifier, place);
    wheel(-60, Qt::ControlModifier, place);
    CHECK(canvas().scale() == doctest::Approx(1132.0 / 6000).epsilon(0.001));

    QTest::mouseDClick(canvas().viewport(), Qt::LeftButton, {}, place);
    CHECK(canvas().zoom() == 1.0);
    QTest::mouseDClick(canvas().viewport(), Qt::LeftButton, {}, place);
    CHECK(canvas().zoom() == 0.0);
    QTest::mouseDClick(canvas().viewport(), Qt::LeftButton, {}, {3, 3}); // Beside the picture.
    CHECK(canvas().zoom() == 0.0);

    touchpad(Qt::BeginNativeGesture, 0);
    touchpad(Qt::ZoomNativeGesture, 0.004); // A hand at rest.
    CHECK(percentText() == "18%");
    touchpad(Qt::ZoomNativeGesture, 0.5);
    CHECK(percentText() == "28%");
    CHECK(canvas().zoom() == 0.0); // Not before it ends.
    touchpad(Qt::EndNativeGesture, 0);
    CHECK(canvas().zoom() == doctest::Approx(1.5 * 1132 / 6000).epsilon(0.001));

    canvas().setZoom(0);
    QWidget *const target = canvas().viewport();
    static QPointingDevice *const screen = QTest::createTouchDevice();
    QTest::touchEvent(target, screen).press(0, {500, 300}).press(1, {600, 300});
    for (int i = 1; i <= 10; ++i)
        QTest::touchEvent(target, screen).move(0, {500 - 5 * i, 300}).move(1, {600 + 5 * i, 300});
    QTest::touchEvent(target, screen).release(0, {450, 300}).release(1, {650, 300});
    CHECK(canvas().zoom() == doctest::Approx(2.0 * 1132 / 6000).epsilon(0.05));

    for (int i = 0; i < 30; ++i)
        QTest::keyClick(&canvas(), Qt::Key_Plus);
    CHECK(percentText() == "400%");
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(&canvas(), Qt::Key_Minus);
    CHECK(percentText() == "5%");
    QTest::keyClick(viewer, Qt::Key_0, Qt::ControlModifier);
    CHECK(percentText() == "18%");
    CHECK(textsThatAreCut(viewer) == QStringList());
}

TEST_CASE_FIXTURE(ViewerFixture, "a picture is moved by dragging and by keys, and zoomed around the pointer")
{
    QImage image(3000, 2000, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int x = 0; x < 3000; x += 100)
        for (int y = 0; y < 2000; y += 100)
            QPainter(&image).fillRect(x, y, 100, 100, QColor(x / 100 * 8, y / 100 * 12, 90));
    openViewer(written(image));
    canvas().setZoom(1.0);
    REQUIRE(eventually([this] { return canvas().isSharp(); }));
    canvas().horizontalScrollBar()->setValue(24);
    canvas().verticalScrollBar()->setValue(24);
    CHECK(seen({250, 350}) == QColor(16, 36, 90).name());

    QWidget *const target = canvas().viewport();
    QTest::mousePress(target, Qt::LeftButton, {}, {400, 400});
    QTest::mouseMove(target, {300, 300});
    QTest::mouseRelease(target, Qt::LeftButton, {}, {300, 300});
    CHECK(seen({250, 350}) == QColor(24, 48, 90).name());
    QTest::keyClick(&canvas(), Qt::Key_End);
    CHECK(canvas().horizontalScrollBar()->value() == canvas().horizontalScrollBar()->maximum());
    QTest::keyClick(&canvas(), Qt::Key_Home);
    QTest::keyClick(&canvas(), Qt::Key_Right);
    CHECK(canvas().horizontalScrollBar()->value() == 40);
    QTest::keyClick(&canvas(), Qt::Key_PageDown);
    CHECK(canvas().verticalScrollBar()->value() > 500);

    // Not at an edge, where there is nothing left to move.
    canvas().horizontalScrollBar()->setValue(900);
    canvas().verticalScrollBar()->setValue(650);
    const QPoint pointer(660, 420);
    const QString below = seen(pointer);
    wheel(240, Qt::ControlModifier, pointer);
    CHECK(seen(pointer) == below);
    wheel(-480, Qt::ControlModifier, pointer);
    REQUIRE(eventually([this] { return canvas().isSharp(); }));
    CHECK(seen(pointer) == below);
}

TEST_CASE_FIXTURE(ViewerFixture, "a file that is no picture says so, and extreme pictures are shown")
{
    writeFile(pictures.filePath("text.png"), "not a picture");
    const QString cut = written(paintedScreens({2000, 1000}), "cut.png");
    REQUIRE(QFile::resize(cut, QFileInfo(cut).size() / 2));
    for (const QString &path :
         {pictures.filePath("missing.png"), pictures.filePath("text.png"), cut, pictures.path()}) {
        CAPTURE(path);
        openViewer(path);
        CHECK(canvas().isUnavailable());
        QStringList texts;
        for (const QLabel *const label : viewer->findChildren<QLabel *>())
            texts << (label->isVisible() ? label->text() : QString());
        CHECK(texts.contains("Screenshot unavailable"));
        CHECK(texts.contains("The saved image could not be found on this Mac."));
        CHECK(percentText().isEmpty());
        QTest::keyClick(viewer, Qt::Key_1, Qt::ControlModifier);
        CHECK(canvas().isUnavailable());
    }
    viewerPicture("viewer-unavailable");

    const QString whole = written(paintedScreens({2000, 1000}));
    faults::setThreads(false);
    openViewer(whole);
    faults::setThreads(true);
    CHECK_MESSAGE(canvas().isUnavailable(), "no thread can be had to read it");
    openViewer(whole);
    CHECK_FALSE(canvas().isUnavailable());

    QImage wide(30'000, 200, QImage::Format_RGB32);
    wide.fill(Qt::darkGreen);
    QPainter(&wide).fillRect(29'900, 0, 100, 200, Qt::red);
    openViewer(written(wide, "wide.png"));
    CHECK(percentText() == "5%");
    canvas().setZoom(4.0);
    canvas().horizontalScrollBar()->setValue(canvas().horizontalScrollBar()->maximum());
    settle();
    CHECK(seen({canvas().viewport()->width() - 200, canvas().viewport()->height() / 2}) == QColor(Qt::red).name());
    openViewer(written(QImage(1, 1, QImage::Format_Mono), "dot.png"));
    CHECK(percentText() == "100%");

    QImage clear(50, 50, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    openViewer(written(clear, "clear.png"));
    CHECK(seen(canvas().viewport()->rect().center()) == QColor(Qt::white).name());
}

TEST_CASE_FIXTURE(ViewerFixture, "a large picture is drawn from a copy while it is zoomed, and sharp once it rests")
{
    openViewer(written(paintedScreens({8192, 4096})));
    AppTheme::instance().setAppearance({Scheme::Dark, Contrast::Normal, Motion::Normal});
    settle();
    viewerPicture("viewer-dark");
    AppTheme::instance().setAppearance({});
    canvas().zoomIn();
    CHECK_FALSE(canvas().isSharp());
    CHECK(eventually([this] { return canvas().isSharp(); }));
    viewer->resize(680, 440);
    CHECK(eventually([this] { return canvas().isSharp(); }));
    viewerPicture("viewer-narrow");
}
