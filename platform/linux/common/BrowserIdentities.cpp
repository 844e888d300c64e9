// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/common/BrowserIdentities.h"

#include <algorithm>
#include <array>

namespace ardeno {

namespace {

struct BrowserNames {
    const char *id;
    std::array<const char *, 4> files; // Distribution, flatpak, snap; absent ones are null.
};

constexpr std::array browsers = {
    BrowserNames{"com.google.Chrome", {"google-chrome", "com.google.Chrome"}},
    BrowserNames{"com.brave.Browser", {"brave-browser", "com.brave.Browser", "brave_brave"}},
    BrowserNames{"org.mozilla.firefox", {"firefox", "firefox-esr", "org.mozilla.firefox", "firefox_firefox"}},
    BrowserNames{"org.chromium.Chromium", {"chromium", "org.chromium.Chromium", "chromium_chromium"}},
};

bool names(const BrowserNames &browser, const QString &desktopFileID)
{
    return std::any_of(browser.files.begin(), browser.files.end(), [&](const char *file) {
        return file && desktopFileID.compare(QLatin1String(file), Qt::CaseInsensitive) == 0;
    });
}

} // namespace

QString BrowserIdentities::applicationID(const QString &desktopFileID)
{
    const auto *browser = std::find_if(browsers.begin(), browsers.end(),
                                       [&](const BrowserNames &candidate) { return names(candidate, desktopFileID); });
    return browser == browsers.end() ? desktopFileID : QString::fromLatin1(browser->id);
}

QStringList BrowserIdentities::desktopFileIDs(const QString &applicationID)
{
    QStringList files;
    for (const BrowserNames &browser : browsers) {
        if (applicationID.compare(QLatin1String(browser.id), Qt::CaseInsensitive) != 0)
            continue;
        for (const char *file : browser.files) {
            if (file)
                files.append(QString::fromLatin1(file));
        }
    }
    return files.isEmpty() ? QStringList{applicationID} : files;
}

} // namespace ardeno
