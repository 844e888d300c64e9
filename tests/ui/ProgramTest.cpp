// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/LibraryLock.h"
#include "tests/ui/RunningWindow.h"

using namespace ardeno;

TEST_CASE_FIXTURE(RunningWindow, "the window is there before the library can be read, and shows it afterwards")
{
    {
        const LibraryLock lock = LibraryLock::waitFor({root()}, std::chrono::milliseconds(0));
        open();
        picture("before-the-library");
        key("ctrl+q");
        CHECK(end(*program).status == 0);
        open();
    }
    createProject("Garden");
}

TEST_CASE_FIXTURE(RunningWindow, "without a session bus the window works all the same")
{
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + home.filePath("no-bus"));
    open();
    createProject("Thesis");
    picture("no-session-bus");
    close();
}

TEST_CASE_FIXTURE(ProgramFixture, "without a display the program says so")
{
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    const ProgramResult result = run({});
    CHECK(result.status == 3);
    CHECK(result.out.isEmpty());
    CHECK(result.error.contains("There is no display"));
}
