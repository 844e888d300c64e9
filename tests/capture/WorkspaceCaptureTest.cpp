// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WorkspaceCapture.h"

#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"

using namespace ardeno;

namespace {

const DesktopRoles roles = {.ownID = "org.ardeno.Ardeno", .fileBrowserIDs = {"files"}, .alwaysListedIDs = {"files"}};

struct RunningFixture {
    fakes::InMemoryDesktop memory;
    Desktop desktop = memory.makeDesktop();
};

} // namespace

TEST_CASE_FIXTURE(RunningFixture, "a checkpoint keeps the applications that a user sees, sorted as people sort names")
{
    memory.running = {
        {"org.example.Zebra", "zebra", true},
        {"org.example.Aepfel", "Äpfel", true},
        {"org.example.Banana", "Banana", true},
        {"org.example.Banana", "Banana again", true},
        {"org.example.NoName", "", true},
        {"org.example.Daemon", "A daemon", false},
        {"org.example.Secret", "A secret", true},
        {"org.ardeno.Ardeno", "Ardeno", true},
        {"files", "Files", false},
        {"", "Nobody", true},
    };

    const QList<SavedApp> apps = WorkspaceCapture::applications(*desktop.workspace, roles, {"org.example.Secret"});

    const QList<SavedApp> expected = {
        {"org.example.Aepfel", "Äpfel"},
        {"org.example.Banana", "Banana"},
        {"files", "Files"},
        {"org.example.NoName", "org.example.NoName"},
        {"org.example.Zebra", "zebra"},
    };
    CHECK(apps == expected);
}

TEST_CASE_FIXTURE(RunningFixture, "the file browser is kept only while it runs and is not excluded")
{
    CHECK(WorkspaceCapture::applications(*desktop.workspace, roles, {}).isEmpty());
    memory.running = {{"files", "Files", false}};
    CHECK(WorkspaceCapture::applications(*desktop.workspace, roles, {"files"}).isEmpty());
}
