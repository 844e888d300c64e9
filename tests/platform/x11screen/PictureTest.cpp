// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11screen/ScreenFixture.h"
#include "tests/platform/x11screen/painter/PaintedWindow.h"

#include "support/BlockOn.h"
#include "support/Failure.h"
#include "tests/Printing.h"
#include "tests/desktop/Desktop.h"
#include "tests/support/FailureOf.h"

using namespace ardeno;
using namespace ardeno::screen_test;

namespace {

// The part of a picture that the pointer, moved to the corner by the fixture, does not touch.
QImage withoutCorner(const QImage &image)
{
    return image.copy(0, 0, image.width() - 32, image.height() - 32);
}

} // namespace

TEST_CASE_FIXTURE(ScreenFixture, "a picture with nothing to leave out is the screen, pixel for pixel")
{
    const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
    const Painter translucent(
        {"class=open", "colour=80400000", "geometry=300,200,300,400", "alpha=yes", "background=none", "kind=popup"});
    const Painter shaped({"class=open", "colour=3050ff", "geometry=700,300,300,300", "shape=cross"});

    // A compositing manager takes its time to show the windows.
    CHECK(desktop_test::eventually([&] { return withoutCorner(picture()) == withoutCorner(peerPicture()); }));
    CHECK(picture().size() == peerPicture().size());
}

TEST_CASE_FIXTURE(ScreenFixture, "a picture put together from windows is the screen, as far as nothing is left out")
{
    const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
    const Painter translucent(
        {"class=open", "colour=80400000", "geometry=300,200,300,400", "alpha=yes", "background=none", "kind=popup"});
    const Painter shaped({"class=open", "colour=3050ff", "geometry=700,300,300,300", "shape=cross", "kind=popup"});
    const Painter secret({"class=secret", "colour=ff00ff", "geometry=1200,700,100,100", "kind=popup"});

    const QRect elsewhere(0, 0, 1150, 650);
    CHECK(
        desktop_test::eventually([&] { return picture({secretID}).copy(elsewhere) == peerPicture().copy(elsewhere); }));
}

TEST_CASE_FIXTURE(ScreenFixture, "the pointer is in the picture, but not the one that an excluded window chose")
{
    const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
    const Painter secret({"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});
    const QImage before = picture({secretID});

    movePointer(200, 200);
    const QImage after = picture({secretID});
    CHECK(after.copy(180, 180, 40, 40) != before.copy(180, 180, 40, 40));
    CHECK(after.copy(400, 180, 40, 40) == before.copy(400, 180, 40, 40));

    movePointer(400, 280);
    CHECK(picture({secretID}).copy(380, 260, 40, 40) == before.copy(380, 260, 40, 40));
}

TEST_CASE_FIXTURE(ScreenFixture, "the background is the root's own, never what is on the screen")
{
    const Painter secret({"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});
    setWallpaper(0x204060);
    CHECK(picture({secretID}).pixel(400, 280) == 0xff204060);

    removeWallpaper();
    REQUIRE(QProcess::execute("xsetroot", {"-solid", "#602040"}) == 0);
    const QImage without = picture({secretID});
    CHECK(without.pixel(400, 280) == without.pixel(1000, 700));
    // Under a compositing manager the root's own background is not to be had.
    CHECK((without.pixel(400, 280) == 0xff602040 || without.pixel(400, 280) == 0xff000000));
}

TEST_CASE_FIXTURE(ScreenFixture, "displays stand in the picture as on the desk, with grey where there is none")
{
    setMonitors({{"DOWN", "1200/300x600/150+0+480"}, {"UP", "800/200x480/120+300+0"}});
    const Painter open({"class=open", "colour=00c000", "geometry=250,430,600,100", "kind=popup"});
    const Painter secret({"class=secret", "colour=ff00ff", "geometry=1050,500,200,200", "kind=popup"});

    REQUIRE(desktop_test::eventually([&] { return countOf(peerPicture(), secretColour) == 200 * 200; }));
    for (const QSet<QString> &excluded : {QSet<QString>(), QSet<QString>{secretID}}) {
        const QImage image = picture(excluded);

        CHECK(image.size() == QSize(1200, 1080));
        CHECK(image.pixel(299, 470) == grey); // The window reaches beyond both displays.
        CHECK(image.pixel(1150, 100) == grey);
        CHECK(image.pixel(300, 470) == openColour);
        CHECK(image.pixel(299, 481) == openColour);
        CHECK(image.pixel(849, 529) == openColour);
        CHECK(image.pixel(500, 100) != grey);
        CHECK((countOf(image, secretColour) == 150 * 200) == excluded.isEmpty());
    }
}

TEST_CASE_FIXTURE(ScreenFixture, "displays that change between the list and the picture are a failure")
{
    setMonitors({{"LEFT", "960/300x1080/300+0+0"}, {"RIGHT", "960/300x1080/300+960+0"}});
    const QList<CaptureDisplay> before = screen.displays();
    REQUIRE(before.size() == 2);
    CanvasRequest request;
    request.size = QSize(1920, 1080);
    for (const CaptureDisplay &display : before)
        request.placements.append({display, display.bounds});
    CHECK(blockOn(screen.compose(request)).size == QSize(1920, 1080));

    setMonitors({{"LEFT", "1000/300x1080/300+0+0"}, {"RIGHT", "920/300x1080/300+1000+0"}});

    CHECK(wholeFailureOf([&] { blockOn(screen.compose(request)); }) ==
          "Capture 2: The displays changed while the screenshot was taken.");
}

TEST_CASE("a server without shared memory gives the same picture, one without Composite none that would show too much")
{
    ScreenFixture fixture;
    const BareServer noMemory({"-extension", "MIT-SHM"});
    X11ScreenCapture slow("org.ardeno.Ardeno", noMemory.name());
    CHECK(fixture.picture(slow, {}).size() == QSize(640, 480));
    CHECK(slow.exclusionAvailability().isAvailable());

    const BareServer noPixmaps({"-extension", "Composite"});
    X11ScreenCapture plain("org.ardeno.Ardeno", noPixmaps.name());
    CHECK(plain.availability().isAvailable());
    CHECK(plain.exclusionAvailability().reason.contains("Composite"));
    CHECK(fixture.picture(plain, {secretID}).size() == QSize(640, 480)); // Nothing has to be left out.
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", noPixmaps.name());
    {
        PaintedWindow own(Painting{.geometry = {10, 10, 50, 50}});
        own.waitUntilShown();
        CHECK(wholeFailureOf([&] { fixture.picture(plain, {}); }).startsWith("NotAvailable 1: "));
    }
    qputenv("DISPLAY", display);
}

TEST_CASE_FIXTURE(ScreenFixture, "a server that has gone is a failure that says so, and no wait")
{
    BareServer server;
    X11ScreenCapture lost("org.ardeno.Ardeno", server.name());
    lost.prepareExclusion({secretID});
    CHECK(picture(lost, {secretID}).size() == QSize(640, 480));
    CanvasRequest request;
    request.size = QSize(640, 480);
    request.placements = {{lost.displays().first(), {0, 0, 640, 480}}};

    server.end();

    CHECK_FALSE(lost.availability().isAvailable());
    CHECK(wholeFailureOf([&] { lost.displays(); }).startsWith("NotAvailable 1: "));
    CHECK(wholeFailureOf([&] { blockOn(lost.compose(request)); }).startsWith("NotAvailable 1: "));
    lost.prepareExclusion({secretID, "org.example.Open"});
    lost.prepareExclusion({});
}
