// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/AppleScripts.h"

#include "tests/Printing.h"

#include <QStringList>

using namespace ardeno;

TEST_CASE("a browser of the Chromium family is asked for its ordinary windows only")
{
    const QStringList lines = {
        R"(tell application id "com.brave.Browser")",
        R"(    set resultText to "")",
        R"(    set windowNumber to 0)",
        R"(    repeat with w in windows)",
        R"(        set windowNumber to windowNumber + 1)",
        R"(        if mode of w is "normal" then)",
        R"(            repeat with t in tabs of w)",
        R"(                set resultText to resultText & (windowNumber as text) & ASCII character 31 & (id of w as text) )"
        R"(& ASCII character 31 & (URL of t) & ASCII character 31 & (title of t) & ASCII character 30)",
        R"(            end repeat)",
        R"(        end if)",
        R"(    end repeat)",
        R"(    return resultText)",
        R"(end tell)",
    };
    const Browser brave = {"com.brave.Browser", "Brave", BrowserFamily::Chromium};
    CHECK(AppleScripts::openTabs(brave) == lines.join('\n'));
}

TEST_CASE("Safari tells the name of a tab and Firefox its title")
{
    QStringList lines = {
        R"(tell application id "com.apple.Safari")",
        R"(    set resultText to "")",
        R"(    set windowNumber to 0)",
        R"(    repeat with w in windows)",
        R"(        set windowNumber to windowNumber + 1)",
        R"(        repeat with t in tabs of w)",
        R"(            set resultText to resultText & (windowNumber as text) & ASCII character 31 & (URL of t) & )"
        R"(ASCII character 31 & (name of t) & ASCII character 30)",
        R"(        end repeat)",
        R"(    end repeat)",
        R"(    return resultText)",
        R"(end tell)",
    };
    const Browser safari = {"com.apple.Safari", "Safari", BrowserFamily::Safari};
    const Browser firefox = {"org.mozilla.firefox", "Firefox", BrowserFamily::Firefox};
    CHECK(AppleScripts::openTabs(safari) == lines.join('\n'));

    lines.first() = R"(tell application id "org.mozilla.firefox")";
    lines[6] =
        R"(            set resultText to resultText & (windowNumber as text) & ASCII character 31 & (URL of t) & )"
        R"(ASCII character 31 & (title of t) & ASCII character 30)";
    CHECK(AppleScripts::openTabs(firefox) == lines.join('\n'));
}

TEST_CASE("Finder is asked for the folder of each window")
{
    const QStringList lines = {
        R"(tell application id "com.apple.finder")",
        R"(    set resultText to "")",
        R"(    repeat with i from 1 to count windows)",
        R"(        try)",
        R"(            set currentWindow to window i)",
        R"(            set itemPath to POSIX path of ((target of currentWindow) as text))",
        R"(            set itemTitle to name of (target of currentWindow))",
        R"(            set resultText to resultText & itemTitle & ASCII character 31 & itemPath & ASCII character 30)",
        R"(        end try)",
        R"(    end repeat)",
        R"(    return resultText)",
        R"(end tell)",
    };
    CHECK(AppleScripts::finderLocations() == lines.join('\n'));
}

TEST_CASE("a tab is opened in its window, found by identifier and else by number")
{
    SavedTab tab;
    tab.url = "https://example.com/a%3b?q=%1";
    tab.window = 3;
    tab.browserWindowID = "1078361696";
    const QStringList lines = {
        R"(tell application id "com.google.Chrome")",
        R"(    try)",
        R"(        make new tab at end of tabs of window id "1078361696" with properties )"
        R"({URL:"https://example.com/a%3b?q=%1"})",
        R"(        return true)",
        R"(    on error)",
        R"(        make new tab at end of tabs of window 3 with properties {URL:"https://example.com/a%3b?q=%1"})",
        R"(        return true)",
        R"(    end try)",
        R"(end tell)",
    };
    CHECK(AppleScripts::openTabInSavedWindow(tab, "com.google.Chrome") == lines.join('\n'));

    SUBCASE("and nothing saved can end the text it stands in")
    {
        tab.browserWindowID = R"(1" & (do shell script "x") & "\)";
        tab.url = R"(https://example.com/"&x&")";
        const QString script = AppleScripts::openTabInSavedWindow(tab, "com.google.Chrome");
        CHECK(script.contains(R"(window id "1\" & (do shell script \"x\") & \"\\" with)"));
        CHECK(script.contains(R"({URL:"https://example.com/\"&x&\""})"));
    }
}
