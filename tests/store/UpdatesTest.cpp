// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BlockOn.h"
#include "tests/store/StoreFixture.h"

#include <QCoroTimer>

using namespace ardeno;

namespace {

// A maker who offers what the test says.
struct UpdateFixture : StoreFixture {
    std::optional<AppUpdateManifest> offer;
    int requests = 0;

    UpdateFixture()
    {
        fetchUpdate = [this] { return fetch(); };
    }

    QCoro::Task<std::optional<AppUpdateManifest>> fetch()
    {
        ++requests;
        co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        co_return offer;
    }

    void check(Force force) { blockOn(store().updates.checkForUpdates(force)); }
};

} // namespace

TEST_CASE_FIXTURE(UpdateFixture, "updates are looked for once a day, also after a failure, and whenever the user asks")
{
    check(Force::No);
    check(Force::No);
    CHECK(requests == 1);
    check(Force::Yes);
    CHECK(requests == 2);
    reopen();
    check(Force::No);
    CHECK(requests == 2); // It is known after a restart, too.

    const auto now = QDateTime::currentDateTimeUtc();

    struct Case {
        QDateTime last;
        int more;
    };

    for (const Case &each : {Case{now.addSecs(-86'300), 0}, Case{now.addSecs(-86'401), 1}, Case{now.addDays(400), 1}}) {
        CAPTURE(each.last.toString());
        opened.reset();
        auto stored = preferences();
        stored.setValue(keys::lastUpdateCheck, each.last);
        REQUIRE(stored.synchronise());
        const int before = requests;
        check(Force::No);
        CHECK(requests == before + each.more);
    }
}

TEST_CASE_FIXTURE(UpdateFixture, "a newer version is offered until a check finds none, and a failure changes nothing")
{
    offer = AppUpdateManifest{.latestVersion = "0.1.1"};
    check(Force::Yes);
    REQUIRE(store().updates.availableUpdate());
    CHECK(store().updates.availableUpdate()->latestVersion == "0.1.1");
    offer.reset();
    check(Force::Yes);
    CHECK(store().updates.availableUpdate());
    CHECK_FALSE(store().messages.error());
    offer = AppUpdateManifest{.latestVersion = "0.1"};
    check(Force::Yes);
    CHECK_FALSE(store().updates.availableUpdate());
}

TEST_CASE_FIXTURE(UpdateFixture, "one check runs at a time, and one that outlives the store is dropped")
{
    offer = AppUpdateManifest{.latestVersion = "2"};
    auto first = store().updates.checkForUpdates(Force::No);
    CHECK(store().updates.checkingForUpdates());
    check(Force::Yes);
    CHECK(requests == 1);
    blockOn(std::move(first));
    CHECK_FALSE(store().updates.checkingForUpdates());

    auto late = store().updates.checkForUpdates(Force::Yes);
    opened.reset();
    blockOn(std::move(late)); // It must not touch what is gone.
}

TEST_CASE_FIXTURE(StoreFixture, "a build without the check never checks")
{
    CHECK_FALSE(store().updates.canCheckForUpdates());
    blockOn(store().updates.checkForUpdates(Force::Yes));
    CHECK_FALSE(preferences().contains("lastUpdateCheck"));
}
