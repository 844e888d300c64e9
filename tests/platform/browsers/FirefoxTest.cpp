// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/browsers/BrowserFixture.h"

using namespace ardeno;

namespace {

struct FirefoxFixture : BrowserFixture {
    const QString profile = folder.filePath("profile");

    FirefoxFixture()
    {
        writeFile(profile + "/user.js", R"(user_pref("browser.sessionstore.interval", 1000);
user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.preonboarding.enabled", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.tabs.warnOnClose", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("termsofuse.acceptedVersion", 999);
)");
    }

    QStringList with(const QStringList &arguments) const { return QStringList{"--profile", profile} + arguments; }
};

} // namespace

TEST_CASE_FIXTURE(FirefoxFixture, "Firefox's tabs are those of its ordinary windows, in order and with their titles")
{
    const QString title = u"Zürich 🎈 \"q\" \\ <i>"_qs;
    const QString one = page("one.html", "One");
    const QString odd = page("odd.html", title);
    const QString two = page("two.html", "Two");
    run("firefox-esr", with({one, odd}));
    REQUIRE(waitFor([&] { return hasWindow(u"One — "_qs); }));
    tell("firefox-esr", with({"--new-window", two}));
    REQUIRE(waitFor([&] { return hasWindow(u"Two — "_qs); }));
    tell("firefox-esr", with({"--private-window", page("secret.html", "Secret")}));
    REQUIRE(waitFor([&] { return hasWindow(u"Secret — "_qs); }));
    checkListed({"1 " + one + " One", "1 " + odd + ' ' + title, "2 " + two + " Two"});

    const auto open = openTabs();
    CHECK(open.tabs.first().browserID == "org.mozilla.firefox");
    CHECK_FALSE(open.tabs.first().browserWindowID.has_value());
    CHECK(ordinaryTitles().size() == 2);
    CHECK(ordinaryTitles().filter("Secret").isEmpty());

    close(u"One — "_qs);
    close(u"Two — "_qs);
    checkListed({});
    CHECK(hasWindow(u"Secret — "_qs));
}

TEST_CASE_FIXTURE(FirefoxFixture, "a Firefox with nothing but a private window has no tabs and no warning")
{
    run("firefox-esr", with({"--private-window", page("secret.html", "Secret")}));
    REQUIRE(waitFor([&] { return hasWindow(u"Secret — "_qs); }));
    checkListed({});
    CHECK(source.isRunning("org.mozilla.firefox"));
}
