// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/macos/AppleScripts.h"

#include "tests/Printing.h"

using namespace ardeno;

TEST_CASE("of a browser of the Chromium family only ordinary windows are asked for, of the others all")
{
    const QString chromium = AppleScripts::openTabs({"com.brave.Browser", "Brave", BrowserFamily::Chromium});
    CHECK(chromium.startsWith(R"(tell application id "com.brave.Browser")"));
    CHECK(chromium.contains(R"(if mode of w is "normal" then)"));
    CHECK(chromium.contains("(id of w as text)"));
    const QString safari = AppleScripts::openTabs({"com.apple.Safari", "Safari", BrowserFamily::Safari});
    const QString firefox = AppleScripts::openTabs({"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox});
    CHECK_FALSE(safari.contains("mode of w"));
    CHECK(safari.contains("(name of t)"));
    CHECK(firefox.contains("(title of t)"));
}

TEST_CASE("a tab is opened in its window, found by identifier and else by number")
{
    SavedTab tab;
    tab.url = "https://example.com/a%3b?q=%1";
    tab.window = 3;
    tab.browserWindowID = "1078361696";
    const QString script = AppleScripts::openTabInSavedWindow(tab, "com.google.Chrome");
    const qsizetype byIdentifier = script.indexOf(R"(tabs of window id "1078361696" with)");
    CHECK(byIdentifier > 0);
    CHECK(script.indexOf(R"(tabs of window 3 with properties {URL:"https://example.com/a%3b?q=%1"})") > byIdentifier);

    SUBCASE("and nothing saved can end the text it stands in")
    {
        tab.browserWindowID = R"(1" & (do shell script "x") & "\)";
        tab.url = R"(https://example.com/"&x&")";
        const QString quoted = AppleScripts::openTabInSavedWindow(tab, "com.google.Chrome");
        CHECK(quoted.contains(R"(window id "1\" & (do shell script \"x\") & \"\\" with)"));
        CHECK(quoted.contains(R"({URL:"https://example.com/\"&x&\""})"));
    }
}
