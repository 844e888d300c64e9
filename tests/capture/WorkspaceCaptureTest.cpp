// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WorkspaceCapture.h"

#include "tests/Printing.h"

#include <doctest/doctest.h>

#include <functional>

using namespace ardeno;

namespace {

class ApplicationsInMemory final : public Workspace {
public:
    Capability availability() const override { return Capability::available(); }

    QList<RunningApplication> runningApplications() override { return running; }

    QList<InstalledApplication> installedApplications() override { return {}; }

    std::optional<InstalledApplication> findApplication(const QString &) override { return std::nullopt; }

    bool isProgramRunning(const QString &) override { return false; }

    std::optional<ApplicationMarks> marks(const QString &) override { return std::nullopt; }

    void setExcluded(const QSet<QString> &, const QList<ApplicationMarks> &) override {}

    void setChangeHandler(std::function<void()>) override {}

    QList<RunningApplication> running = {};
};

const DesktopRoles roles = {.ownID = "org.ardeno.Ardeno", .fileBrowserIDs = {"files"}, .alwaysListedIDs = {"files"}};

} // namespace

TEST_CASE("a checkpoint keeps the applications that a user sees, sorted as people sort names")
{
    ApplicationsInMemory workspace;
    workspace.running = {
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

    const QList<SavedApp> apps = WorkspaceCapture::applications(workspace, roles, {"org.example.Secret"});

    const QList<SavedApp> expected = {
        {"org.example.Aepfel", "Äpfel"},
        {"org.example.Banana", "Banana"},
        {"files", "Files"},
        {"org.example.NoName", "org.example.NoName"},
        {"org.example.Zebra", "zebra"},
    };
    CHECK(apps == expected);
}

TEST_CASE("the file browser is kept only while it runs and is not excluded")
{
    ApplicationsInMemory workspace;
    CHECK(WorkspaceCapture::applications(workspace, roles, {}).isEmpty());
    workspace.running = {{"files", "Files", false}};
    CHECK(WorkspaceCapture::applications(workspace, roles, {"files"}).isEmpty());
}
