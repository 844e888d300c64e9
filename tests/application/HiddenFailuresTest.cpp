// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"
#include "tests/application/NotificationServer.h"
#include "tests/application/TrayHost.h"

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

namespace {

struct HiddenFixture : ApplicationFixture {
    NotificationServer server;

    void breakLibrary() const { writeFile(libraryPath(), "not a library"); }
};

const QString unreadable = "Your saved checkpoints could not be read.";
const QString marked = u"Ardeno — Something needs attention"_qs;

} // namespace

TEST_CASE_FIXTURE(HiddenFixture, "what fails while there is no window is notified, leads to the window, and then goes")
{
    breakLibrary();
    const TrayHost host;
    application = start({"--background"});
    REQUIRE(eventually([&] { return server.text().startsWith(unreadable); }));
    CHECK(eventually([&] { return host.hasItem() && host.toolTip() == marked; }));
    CHECK(server.press("Show"));
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(waitForControl("Something needs attention"));
    CHECK(eventually([&] { return server.text().isEmpty() && host.toolTip() == "Ardeno"; }));
    picture("hidden-failure-shown");
    CHECK_MESSAGE(server.count() == 1, "what is seen is not notified");
}

TEST_CASE_FIXTURE(HiddenFixture,
                  "what fails while a notification is on its way takes its place, and goes with the window")
{
    breakLibrary();
    server.setSlow(true);
    application = start({"--background"});
    REQUIRE(eventually([&] { return server.count() == 1; }));
    REQUIRE(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0); // Which keeps what could not be read.
    server.setSlow(false);
    CHECK(eventually([&] { return server.count() == 2; }));
    CHECK(server.shownCount() == 1);
    CHECK(server.press("Show"));
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(eventually([&] { return server.shownCount() == 0; }));
}

TEST_CASE_FIXTURE(ApplicationFixture, "while a session is recorded a window without a tray is minimised, not hidden")
{
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    const QString id = window("Ardeno");
    outputOf("wmctrl", {"-i", "-c", id});
    CHECK(eventually([&] { return outputOf("xprop", {"-id", id, "WM_STATE"}).contains("Iconic"); }));
    CHECK(outputOf("wmctrl", {"-l"}).contains("Ardeno"));
    CHECK(terminate().status == 0);
}
