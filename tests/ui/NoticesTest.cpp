// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/ui/WindowFixture.h"
#include "ui/main/Banners.h"
#include "ui/main/ResumeBanner.h"

#include <QScrollArea>
#include <QTest>
#include <QTimer>

using namespace ardeno;

namespace {

struct Notices : WindowFixture {
    Notices()
    {
        hasSheets = true;
        hasSettings = true;
    }

    NoticeBanner *strip() const { return find<NoticeBanner>(); }

    // Whether the notice is gone when what it waits is over, and over again.
    bool leaves()
    {
        int times = 0;
        const QObject context;
        QObject::connect(strip()->findChild<QTimer *>({}, Qt::FindDirectChildrenOnly), &QTimer::timeout, &context,
                         [&times] { ++times; });
        REQUIRE(eventually([&] { return times > 1 || !store().messages.notice(); }));
        return !store().messages.notice();
    }

    void announce()
    {
        strip()->setPatience(std::chrono::milliseconds(300)); // Longer than anything between two lines here takes.
        store().messages.confirm("Something was done.");
        settle();
    }
};

} // namespace

TEST_CASE_FIXTURE(Notices, "a notice leaves by itself, but not while it is pointed at or cannot be seen")
{
    openProject();
    QTest::mouseMove(window.get(), {400, 300});
    announce();
    CHECK(eventually([this] { return !store().messages.notice(); }));
    CHECK_FALSE(strip()->isVisible());

    announce();
    QTest::mouseMove(strip(), {10, 10});
    CHECK_FALSE(leaves());
    QTest::mouseMove(window.get(), {400, 300});
    CHECK(eventually([this] { return !store().messages.notice(); }));

    announce();
    button("Dismiss the message")->setFocus();
    CHECK_FALSE(leaves());
    window->setFocus();
    CHECK(eventually([this] { return !store().messages.notice(); }));

    announce();
    store().sheets.open(&OpenSheets::showSettings);
    settle();
    CHECK_FALSE(leaves());
    store().sheets.close(&OpenSheets::showSettings);
    CHECK(eventually([this] { return !store().messages.notice(); }));

    announce();
    window->hide();
    CHECK_FALSE(leaves());
}

TEST_CASE_FIXTURE(Notices, "what a resume opened, failed to open and did not place stands together and is led to")
{
    const QUuid project = openProject();
    memory.installed = {{"org.editor", "Editor"}, {"viewer", "Viewer"}};
    Checkpoint checkpoint = saveCheckpoint(project, "Mixed", 10);
    checkpoint.apps = {{"org.editor", "Editor"}, {"viewer", "Viewer"}};
    SavedWindow saved{.appID = "org.editor", .appName = "Editor", .title = "notes.txt"};
    saved.frame = {10, 10, 400, 300};
    checkpoint.windows = QList<SavedWindow>{saved};
    REQUIRE(store().editing.save(checkpoint));
    memory.movable = {{.windowID = 1, .applicationID = "org.editor", .title = "notes.txt", .isMinimised = true}};
    memory.failedStarts = {{"viewer", "Viewer", {}}};
    blockOn(store().resumes.restore(checkpoint, ResumeSelection::missing, true));
    settle();
    press(Qt::Key_Return); // The message about what failed.
    CHECK(store().messages.notice() ==
          u"Workspace restored · 0 opened · 1 already active · 0 window positions restored · 1 failed · 1 window not "
          "placed"_qs);
    CHECK(seesText("Could not open: Viewer (it ended with an error)"));
    pictures("resume-shortfall");
    auto *const page = dynamic_cast<QScrollArea *>(widget("Checkpoint"));
    QWidget *const card = widget("Not everything is back");
    REQUIRE(card);
    CHECK(card->mapTo(window.get(), QPoint(0, card->height())).y() < window->height());
    click("Show what is not back");
    CHECK(window->focusWidget() == card);
    CHECK(card->accessibleDescription().count('\n') == 1);
    click("Dismiss what is not back");
    CHECK_FALSE(widget("Not everything is back"));
    CHECK(page == dynamic_cast<QScrollArea *>(widget("Checkpoint")));
}

TEST_CASE_FIXTURE(Notices, "a newer version is offered by a banner and in the settings, until it is no longer newer")
{
    const AppUpdateManifest newer{.latestVersion = "99",
                                  .releaseNotes = {"Resuming is faster", "Windows return to every display"},
                                  .downloadURL = QUrl("https://example.org/get")};
    std::optional<AppUpdateManifest> offer = newer;
    fetchUpdate = [&]() -> QCoro::Task<std::optional<AppUpdateManifest>> { co_return offer; };
    openWindow();
    store().updates.checkForUpdates(Force::No);
    REQUIRE(eventually([this] { return seesText("Ardeno 99 is available."); }));
    pictures("update-banner");
    click(u"See what’s new"_qs);
    CHECK(seesText("Version 99"));
    CHECK(seesText("Windows return to every display"));
    pictures("update-details");
    click("Not now");
    click("Dismiss the update");
    CHECK_FALSE(seesText("Ardeno 99 is available."));

    click("Settings");
    const auto check = [&](const std::optional<AppUpdateManifest> &found) {
        offer = found;
        click("Check for updates");
    };
    check(newer);
    CHECK(seesText("Update available: 99"));
    CHECK(findButton("Download update"));
    pictures("preferences-update");
    check(std::nullopt);
    CHECK(seesText("Update available: 99\nCould not check for updates. Try again when you are online."));
    check(AppUpdateManifest{.latestVersion = "0.0.1"});
    CHECK(seesText(QString("Ardeno %1 is up to date.").arg(Updates::currentAppVersion())));
}

TEST_CASE_FIXTURE(Notices, "what the maker says of an update is text in its place, and leads to secure downloads alone")
{
    const AppUpdateManifest offer{.latestVersion = QString("1.").repeated(5000) + '1',
                                  .releaseNotes = {QString("<b>long</b> ").repeated(300)},
                                  .downloadURL = QUrl("http://example.org/get")};
    fetchUpdate = [&]() -> QCoro::Task<std::optional<AppUpdateManifest>> { co_return offer; };
    openWindow();
    window->resize(960, 690);
    click("Settings");
    click("Check for updates");
    CHECK_FALSE(findButton("Download update"));
    REQUIRE(store().updates.availableUpdate());
    pictures("update-insecure");
    click("Done");
    click(u"See what’s new"_qs);
    CHECK_FALSE(findButton("Download update"));
    CHECK(window->width() == 960);
    picture("update-endless-version");
}

TEST_CASE_FIXTURE(Notices, "a resume that takes long says what it waits for, and ends where it is stopped")
{
    Checkpoint saved = saveCheckpoint(openProject(), "Draft", 10);
    memory.installed = {{"viewer", "Viewer"}};
    memory.starting = {"viewer"}; // Its window never comes.
    saved.apps = {{"viewer", "Viewer"}};
    saved.windows =
        QList<SavedWindow>{{.appID = "viewer", .appName = "Viewer", .title = "paper", .frame = {50, 60, 500, 400}}};
    REQUIRE(store().editing.save(saved));
    find<ResumeBanner>()->setPatience(std::chrono::milliseconds(1));

    store().resumes.restore(saved, ResumeSelection::missing, true);
    CHECK(eventually([this] { return seesText(u"Resuming “Draft”. Waiting for Viewer."_qs); }));
    pictures("resuming");
    click("Stop resuming");
    CHECK(eventually([this] { return !store().resumes.resuming(); }));
    CHECK_FALSE(findButton("Stop resuming"));
    REQUIRE(store().resumes.unplacedWindows().size() == 1);
    CHECK(store().resumes.unplacedWindows().first().reason == "stopped by you");
}
