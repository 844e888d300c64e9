// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/network/UpdateFetch.h"
#include "tests/services/network/ManifestServer.h"
#include "tests/ui/WindowFixture.h"

#include <QTest>

using namespace ardeno;

namespace {

struct UpdateJourney : WindowFixture {
    ManifestServer server;

    UpdateJourney()
    {
        hasSettings = true;
        fetchUpdate = [this] { return fetch(); };
    }

    QCoro::Task<std::optional<AppUpdateManifest>> fetch()
    {
        const UpdateFetchOptions options{.manifest = server.url("/ardeno-update.json"),
                                         .patience = std::chrono::seconds(60),
                                         .furtherAuthorities = server.certificate()};
        const std::optional<QByteArray> bytes = co_await fetchManifest(options);
        co_return bytes ? AppUpdateManifest::fromJson(*bytes) : std::nullopt;
    }

    void offer(const QByteArray &manifest)
    {
        server.setAnswer("/ardeno-update.json", ManifestServer::status("200 OK", {}, manifest));
    }

    void checkNow()
    {
        click("Check for updates");
        REQUIRE(eventually([this] { return !store().updates.checkingForUpdates(); }));
    }
};

} // namespace

TEST_CASE_FIXTURE(UpdateJourney, "an offered version shows its banner and details, until it is no longer newer")
{
    offer(R"({"latestVersion": "0.2.0", "releaseNotes": ["Resuming is faster", "Windows return to every display"],
              "downloadURL": "https://example.org/download"})");
    openWindow();
    store().projects.createProject("Thesis");
    store().updates.checkForUpdates(Force::No);
    REQUIRE(eventually([this] { return seesText("Ardeno 0.2.0 is available."); }));
    bothPictures("update-banner");
    click(u"See what’s new"_qs);
    CHECK(seesText("Version 0.2.0"));
    CHECK(seesText("Windows return to every display"));
    bothPictures("update-details");
    click("Not now");
    click("Dismiss the update");
    CHECK_FALSE(seesText("Ardeno 0.2.0 is available."));
    CHECK(server.requests("/ardeno-update.json") == 1);

    click("Settings");
    CHECK_FALSE(findButton("Download update"));
    checkNow();
    CHECK(server.requests("/ardeno-update.json") == 2);
    CHECK(seesText("Update available: 0.2.0"));
    CHECK(findButton("Download update"));
    bothPictures("preferences-update");
    offer(R"({"latestVersion": "0.0.9", "releaseNotes": []})");
    checkNow();
    CHECK_FALSE(seesText("Update available: 0.2.0"));
}

TEST_CASE_FIXTURE(UpdateJourney, "what a manifest says is never more than text in its place")
{
    const QByteArray endless = QByteArray("1.").repeated(5000) + "1";
    offer(R"({"latestVersion": ")" + endless + R"(", "releaseNotes": [")" + QByteArray("<b>long</b> ").repeated(300) +
          R"("], "downloadURL": "http://example.org/x"})");
    openWindow();
    window->resize(960, 690);
    click("Settings");
    checkNow();
    REQUIRE(store().updates.availableUpdate());
    CHECK_FALSE(findButton("Download update")); // It leads to no secure page.
    CHECK(window->width() == 960);
    picture("preferences-endless-version");
    click("Done");
    click(u"See what’s new"_qs);
    CHECK(window->width() == 960);
    picture("update-endless-version");
}
