// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"
#include "tests/application/TrayHost.h"

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

TEST_CASE_FIXTURE(ApplicationFixture, "the tray item comes with a host, opens the window and lets it close quietly")
{
    startApplication({"--background"});
    CHECK(run({"doctor"}).out.contains("No panel of this session shows tray items."));
    const TrayHost host;
    REQUIRE(eventually([&] { return host.hasItem() && !host.entries().isEmpty(); }));
    CHECK(host.toolTip() == "Ardeno");
    const QStringList entries = host.entries();
    CHECK(entries.first(3) == QStringList{u"Quick Save Checkpoint…"_qs, "-", "Open Ardeno"});
    CHECK(entries.last() == "Quit");
    CHECK(host.choose("Open Ardeno"));
    REQUIRE(waitForWindow("Ardeno"));
    outputOf("wmctrl", {"-i", "-c", window("Ardeno")});
    CHECK(waitForNoWindow("Ardeno"));
    CHECK(isRunning());
    CHECK(host.choose(u"Quick Save Checkpoint…"_qs));
    CHECK(waitForWindow("Quick save checkpoint"));
    CHECK(window("Ardeno").isEmpty());
    CHECK(host.choose("Quit"));
    const ProgramResult ended = end(*application);
    CHECK(ended.error == "");
    CHECK(ended.status == 0);
}

TEST_CASE_FIXTURE(ApplicationFixture,
                  "a session is stopped from the tray, which does not quit before, also after its host died")
{
    startApplication({"--background"});
    auto host = std::make_unique<TrayHost>();
    REQUIRE(eventually([&] { return host->hasItem(); }));
    REQUIRE(run({"record", "start", "--project", "Thesis"}).status == 0);
    host.reset();
    CHECK(run({"list"}).status == 0);

    const TrayHost next;
    REQUIRE(eventually([&] { return next.hasItem() && next.entries().contains("Recording main display"); }));
    CHECK(next.toolTip() == u"Ardeno — Recording"_qs);
    CHECK_FALSE(next.entries().contains(u"Quick Save Checkpoint…"_qs));
    CHECK_FALSE(next.choose("Recording main display"));
    CHECK(next.choose("Quit"));
    REQUIRE(waitForWindow("Ardeno")); // It says why not.
    picture("tray-quit-refused");
    CHECK(isRunning());
    CHECK(next.choose("Stop & Save Checkpoint"));
    REQUIRE(eventually([this] { return checkpoints().size() == 1; }));
    REQUIRE(eventually([&] { return next.entries().contains(u"Quick Save Checkpoint…"_qs); }));
    CHECK(next.choose("Quit"));
    CHECK(end(*application).status == 0);
    CHECK(checkpoints().size() == 1);
}
