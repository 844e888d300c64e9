// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/store/SavedFixture.h"

using namespace ardeno;

TEST_CASE_FIXTURE(SavedFixture, "a workspace is active while all of its applications run")
{
    saved.apps = {{"org.editor", "Editor"}, {"org.viewer", "Viewer"}};
    REQUIRE(store().editing.save(saved));
    store().applications.watchRunningApplications();
    CHECK_FALSE(store().applications.isWorkspaceActive(now()));
    memory.addApplication("org.viewer", "Viewer", {0, 0, 10, 10});
    memory.applicationsChanged();
    CHECK(store().applications.isWorkspaceActive(now()));
    memory.running.removeFirst();
    memory.applicationsChanged();
    CHECK_FALSE(store().applications.isWorkspaceActive(now()));
    CHECK_FALSE(store().applications.isWorkspaceActive(Checkpoint()));

    opened.reset();
    CHECK_MESSAGE(!memory.applicationsChanged, "nothing calls a store that has gone");
}

TEST_CASE_FIXTURE(StoreFixture, "applications to be excluded are offered with a name, without this program")
{
    memory.installed = {{"org.z", " Zed\n", {}},
                        {"org.ardeno.Ardeno", "Ardeno", {}},
                        {"", "Nobody", {}},
                        {"org.nameless", "", {}},
                        {"org.a", "alpha", {}}};
    QStringList names;
    for (const InstalledApplication &app : store().applications.installedApps())
        names << app.name;
    CHECK(names == QStringList{"alpha", "org.nameless", "Zed"});
    memory.addApplication("org.other", "Other", {0, 0, 500, 500});
    store().rules.excludeApp({"org.editor", "Editor"});
    CHECK(store().applications.runningApps() == QList<SavedApp>{{"org.other", "Other"}});
}
