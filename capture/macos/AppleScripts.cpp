// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/macos/AppleScripts.h"

namespace ardeno {

namespace {

QString told(const QString &applicationID, const QString &body)
{
    return u"tell application id \""_qs + applicationID + body;
}

constexpr auto chromiumBody = uR"("
    set resultText to ""
    set windowNumber to 0
    repeat with w in windows
        set windowNumber to windowNumber + 1
        if mode of w is "normal" then
            repeat with t in tabs of w
                set resultText to resultText & (windowNumber as text) & ASCII character 31 & (id of w as text) & ASCII character 31 & (URL of t) & ASCII character 31 & (title of t) & ASCII character 30
            end repeat
        end if
    end repeat
    return resultText
end tell)";

constexpr auto safariBody = uR"("
    set resultText to ""
    set windowNumber to 0
    repeat with w in windows
        set windowNumber to windowNumber + 1
        repeat with t in tabs of w
            set resultText to resultText & (windowNumber as text) & ASCII character 31 & (URL of t) & ASCII character 31 & (name of t) & ASCII character 30
        end repeat
    end repeat
    return resultText
end tell)";

constexpr auto openTabBody = uR"("
    try
        make new tab at end of tabs of window id "%1" with properties {URL:"%2"}
        return true
    on error
        make new tab at end of tabs of window %3 with properties {URL:"%2"}
        return true
    end try
end tell)";

// A saved text must not end the literal that it stands in.
QString escaped(QString text)
{
    return text.replace('\\', u"\\\\"_qs).replace('"', u"\\\""_qs);
}

} // namespace

QString AppleScripts::openTabs(const Browser &browser)
{
    switch (browser.family) {
    case BrowserFamily::Chromium:
        return told(browser.id, QString::fromUtf16(chromiumBody));
    case BrowserFamily::Safari:
        return told(browser.id, QString::fromUtf16(safariBody));
    case BrowserFamily::Firefox:
        break;
    }
    return told(browser.id, QString::fromUtf16(safariBody).replace("(name of t)", "(title of t)"));
}

QString AppleScripts::openTabInSavedWindow(const SavedTab &tab, const QString &browserID)
{
    // All at once: an address may itself contain "%3". It stays as it was saved, which QUrl would not leave it.
    return told(browserID, QString::fromUtf16(openTabBody)
                               .arg(escaped(tab.browserWindowID.value_or(QString())), escaped(tab.url),
                                    QString::number(tab.window)));
}

} // namespace ardeno
