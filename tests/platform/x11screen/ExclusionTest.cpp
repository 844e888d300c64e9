// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/x11screen/ScreenFixture.h"
#include "tests/platform/x11screen/painter/PaintedWindow.h"

#include "tests/Printing.h"
#include "tests/desktop/Desktop.h"

using namespace ardeno;
using namespace ardeno::screen_test;

namespace {

QString rootWindow()
{
    return QString::number(X11Connection().root());
}

} // namespace

// What must hold on every desktop, with and without a window manager and a compositing manager.
TEST_SUITE("exclusion")
{
    TEST_CASE_FIXTURE(ScreenFixture, "an excluded application is in no pixel, with all its kinds of windows")
    {
        const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
        const Painter window({"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});
        const Painter popup({"class=anything", "colour=00c000", "geometry=50,600,80,80", "kind=popup"});
        const Painter shaped({"class=secret", "colour=ff00ff", "geometry=600,300,300,300", "shape=cross"});
        const Painter menu({"class=secret", "colour=ff00ff", "geometry=320,420,150,150", "kind=popup"});
        const Painter onTop({"class=open", "colour=00c000", "geometry=400,250,60,60", "kind=popup"});

        CHECK(desktop_test::eventually([&] { return countOf(picture(), secretColour) > 10000; }));
        const QImage without = picture({secretID});

        CHECK(countOf(without, secretColour) == 0);
        // What was below shows itself, and other applications' popups stay.
        CHECK(without.pixel(350, 260) == openColour);
        CHECK(without.pixel(430, 280) == openColour);
        CHECK(without.pixel(90, 640) == openColour);
        CHECK(countOf(without, openColour) > 600 * 400 - 100);
        // Where nothing is below, it is the same background as elsewhere.
        CHECK(without.pixel(750, 450) == without.pixel(1200, 800));
    }

    TEST_CASE_FIXTURE(ScreenFixture, "a popup that says nothing about itself belongs to its process")
    {
        const Painter secret({"class=secret", "colour=ff00ff", "geometry=100,100,100,100", "menu=300,300,100,100"});
        const Painter other({"class=open", "colour=00c000", "geometry=500,100,100,100", "menu=500,300,100,100"});

        const QImage without = picture({secretID});

        CHECK(countOf(without, secretColour) == 0);
        CHECK(without.pixel(550, 350) == openColour);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "a window that is not drawn again shows no trace of what had covered it")
    {
        bool isPrepared = false;
        SUBCASE("unprepared") {}
        SUBCASE("prepared in good time, so that nothing is grey")
        {
            screen.prepareExclusion({secretID});
            isPrepared = true;
        }
        const Painter lazy(
            {"class=open", "colour=00c000", "geometry=100,100,600,400", "background=none", "drawing=once"});
        const Painter window({"class=secret", "colour=ff00ff", "geometry=300,200,200,150"});

        const QImage without = picture({secretID});

        CHECK(countOf(without, secretColour) == 0);
        CHECK(without.pixel(150, 350) == openColour);
        const QRgb covered = without.pixel(400, 280);
        // A compositing manager has kept what it had drawn.
        CHECK((covered == openColour || (covered == grey && !isPrepared)));
    }

    TEST_CASE_FIXTURE(ScreenFixture, "a window mapped over an excluded one does not show it until it is drawn")
    {
        screen.prepareExclusion({secretID});
        const Painter window({"class=secret", "colour=ff00ff", "geometry=100,100,400,300"});
        Painter glass({"class=open", "colour=00c000", "geometry=200,200,500,400", "background=none", "drawing=never"});

        const QImage without = picture({secretID});
        CHECK(countOf(without, secretColour) == 0);
        CHECK(without.pixel(400, 300) == grey);

        glass.drawNow();
        const QImage drawn = picture({secretID});
        CHECK(countOf(drawn, secretColour) == 0);
        CHECK(drawn.pixel(400, 300) == openColour);
        screen.prepareExclusion({});
    }

    TEST_CASE_FIXTURE(ScreenFixture,
                      "windows that were mapped over an excluded one before anybody watched are drawn anew")
    {
        const Painter window({"class=secret", "colour=ff00ff", "geometry=100,100,600,300"});
        const Painter blind({"class=open", "colour=00c000", "geometry=150,150,200,100", "background=none",
                             "drawing=never", "kind=popup"});
        const Painter late({"class=open", "colour=00c000", "geometry=450,150,200,100", "background=none",
                            "drawing=again", "kind=popup"});
        const Painter usual({"class=open", "colour=00c000", "geometry=150,300,200,50", "kind=popup"});
        REQUIRE(shows(secretColour));
        const QImage whole = peerPicture();
        const bool isShared = qEnvironmentVariableIsEmpty("ARDENO_COMPOSITED");
        if (isShared) // Both show what lies below them.
            REQUIRE((whole.pixel(250, 200) == secretColour && whole.pixel(550, 200) == secretColour));

        const QImage without = picture({secretID});
        CHECK(countOf(without, secretColour) == 0);
        CHECK(without.pixel(250, 200) == grey);
        CHECK(without.pixel(550, 200) == openColour);
        CHECK(without.pixel(250, 320) == openColour);
    }

    TEST_CASE_FIXTURE(ScreenFixture,
                      "a dialog that another program draws for an excluded application is left out with it")
    {
        const Painter window({"class=secret", "colour=ff00ff", "geometry=100,100,400,300"});
        const Painter other({"class=open", "colour=00c000", "geometry=700,100,400,300"});
        const auto leader = [](const char *name) {
            return "leader=" + desktop_test::outputOf("xdotool", {"search", "--classname", name}).trimmed();
        };
        const QString secretLeader = leader("^secret$");
        const QString openLeader = leader("^open$");
        const Painter portal(
            {"class=portal", "colour=ff00ff", "geometry=150,450,200,150", "menu=150,650,50,50", secretLeader});
        const Painter allowed({"class=portal", "colour=00c000", "geometry=750,450,200,150", openLeader});
        const Painter forAnybody(
            {"class=prompt", "colour=ff00ff", "geometry=1120,100,200,150", "leader=" + rootWindow()});
        const Painter known({"class=open", "colour=00c000", "geometry=1120,300,100,100", "leader=" + rootWindow()});
        const Painter ownDialog({"class=open", "colour=ff00ff", "geometry=400,500,100,100", secretLeader});
        REQUIRE(countOf(picture(), secretColour) > 400 * 300 + 2 * 200 * 150);

        const QImage without = picture({secretID});
        CHECK(countOf(without, secretColour) == 0);
        CHECK(countOf(without, openColour) > 400 * 300 + 200 * 150 + 100 * 100 - 100);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "what an excluded window leaves behind on the screen is not handed on")
    {
        screen.prepareExclusion({secretID});
        auto window = std::make_unique<Painter>(
            QStringList{"class=secret", "colour=ff00ff", "geometry=100,100,400,300", "kind=popup"});
        Painter glass({"class=open", "colour=00c000", "geometry=200,200,500,400", "background=none", "drawing=never",
                       "kind=popup"});
        window.reset();

        // Nothing of an excluded application is mapped, yet its pixels are still in the other window.
        CHECK(countOf(picture({secretID}), secretColour) == 0);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "the program's own windows are in no picture")
    {
        const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
        PaintedWindow own(Painting{.windowClass = "ardeno", .colour = 0x00ffff, .geometry = {300, 200, 200, 150}});
        own.waitUntilShown();
        REQUIRE(shows(0xff00ffff));

        const QImage without = picture();

        CHECK(countOf(without, 0xff00ffff) == 0);
        CHECK(without.pixel(400, 280) == openColour);
    }

    TEST_CASE_FIXTURE(ScreenFixture, "windows that come and go meanwhile neither break pictures nor get into them")
    {
        const Painter open({"class=open", "colour=00c000", "geometry=100,100,600,400"});
        const Painter secret(
            {"class=secret", "colour=ff00ff", "geometry=300,200,200,150", "kind=popup", "life=flicker"});
        const Painter other({"class=open", "colour=00c000", "geometry=350,220,300,250", "kind=popup", "life=flicker"});
        for (int i = 0; i < 30; ++i) {
            if (i == 15)
                screen.prepareExclusion({secretID});
            const QImage without = picture({secretID});
            REQUIRE(countOf(without, secretColour) == 0);
            REQUIRE(without.pixel(150, 350) == openColour);
        }
    }
}
