// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/application/ApplicationFixture.h"

using namespace ardeno;
using desktop_test::eventually;
using desktop_test::outputOf;

TEST_CASE_FIXTURE(ApplicationFixture, "one application has the window and carries out the commands")
{
    startApplication({});
    REQUIRE(waitForWindow("Ardeno"));
    CHECK(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);
    CHECK(run({"show", "XYZ"}).error == "There is no checkpoint “XYZ”.\n");
    // What another one failed to do is no business of the next.
    CHECK(run({"allow", "domain", "bank.example"}).error == "“bank.example” is not excluded.\n");
    CHECK(run({"resume", "--latest", "--no-layout"}).error == "");
    CHECK(run({"record", "stop"}).error == "No work session is being recorded.\n");
    CHECK(run({"quick-save", "now"}).status == 2);
    CHECK(checkpoints().size() == 1);

    CHECK(run({}).status == 0);
    CHECK(run({"--background"}).status == 0);
    CHECK(outputOf("wmctrl", {"-l"}).count("Ardeno") == 1);
    const ProgramResult ended = terminate();
    CHECK(ended.status == 0);
    CHECK(ended.error == "");
    CHECK(run({"list"}).status == 0);
}

TEST_CASE_FIXTURE(ApplicationFixture, "a closed window leaves the application running, which says so once")
{
    startApplication({});
    REQUIRE(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);
    REQUIRE(waitForWindow("Ardeno"));
    const auto close = [this] { outputOf("wmctrl", {"-i", "-c", window("Ardeno")}); };
    close();
    run({});
    REQUIRE(waitForControl("Close window"));
    REQUIRE(waitForKeyboard());
    desktop_test::waitUntilRead();
    key("Return");
    CHECK(waitForNoWindow("Ardeno"));
    CHECK(isRunning());
    CHECK(run({"save", "--project", "Thesis", "--no-tabs"}).status == 0);

    CHECK(run({}).status == 0);
    REQUIRE(waitForWindow("Ardeno"));
    close();
    CHECK(waitForNoWindow("Ardeno"));
    CHECK(run({}).status == 0);
    REQUIRE(waitForKeyboard());
    key("ctrl+q");
    CHECK(waitForEnd());
    CHECK(end(*application).status == 0);
    CHECK(checkpoints().size() == 2);
}
