// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/browsers/BrowserIdentities.h"

#include "desktop/Workspace.h"

#include <algorithm>
#include <array>

namespace ardeno {

namespace {

enum class Sessions { Chromium, Firefox, Unreadable };

// Names in lower case, separated by spaces.
struct BrowserRow {
    const char *id;
    const char *name;
    Sessions sessions;
    const char *files;    // Desktop files, the likeliest first: of a distribution, flatpak, snap.
    const char *programs; // Names of the program's file.
    const char *classes;  // Further window classes.
};

constexpr std::array browserTable = {
    BrowserRow{
        "com.google.Chrome", "Chrome", Sessions::Chromium,
        "google-chrome google-chrome-stable com.google.Chrome google-chrome-beta google-chrome-unstable",
        "chrome google-chrome google-chrome-stable google-chrome-beta google-chrome-unstable google-chrome-canary", ""},
    BrowserRow{
        "com.brave.Browser", "Brave", Sessions::Chromium,
        "brave-browser brave-browser-stable com.brave.Browser brave_brave brave-browser-beta brave-browser-nightly",
        "brave brave-browser brave-browser-stable brave-browser-beta brave-browser-nightly", ""},
    BrowserRow{
        "org.mozilla.firefox", "Firefox", Sessions::Firefox,
        "firefox firefox-esr org.mozilla.firefox firefox_firefox firefox-beta firefox-devedition firefox-nightly",
        "firefox firefox-esr firefox-bin firefox-beta firefox-devedition firefox-nightly", "navigator"},
    BrowserRow{"org.chromium.Chromium", "Chromium", Sessions::Chromium,
               "chromium chromium-browser org.chromium.Chromium chromium_chromium ungoogled-chromium "
               "io.github.ungoogled_software.ungoogled_chromium",
               "chromium chromium-browser ungoogled-chromium", ""},
    BrowserRow{"vivaldi-stable", "Vivaldi", Sessions::Unreadable, "vivaldi-stable com.vivaldi.Vivaldi",
               "vivaldi vivaldi-bin", "vivaldi-snapshot"},
    BrowserRow{"microsoft-edge", "Edge", Sessions::Unreadable, "microsoft-edge com.microsoft.Edge",
               "msedge microsoft-edge", "microsoft-edge-beta microsoft-edge-dev"},
    BrowserRow{"opera", "Opera", Sessions::Unreadable, "opera com.opera.Opera opera_opera", "opera",
               "opera-beta opera-developer"},
    BrowserRow{"librewolf", "LibreWolf", Sessions::Unreadable, "librewolf io.gitlab.librewolf-community",
               "librewolf librewolf-bin", ""},
    BrowserRow{"torbrowser", "Tor Browser", Sessions::Unreadable,
               "torbrowser start-tor-browser org.torproject.torbrowser-launcher", "firefox.real", "tor-browser"},
    BrowserRow{"mullvad-browser", "Mullvad Browser", Sessions::Unreadable, "mullvad-browser net.mullvad.MullvadBrowser",
               "mullvadbrowser mullvadbrowser.real", ""},
    BrowserRow{"org.gnome.Epiphany", "GNOME Web", Sessions::Unreadable, "org.gnome.Epiphany epiphany",
               "epiphany epiphany-browser", ""},
    BrowserRow{"org.kde.falkon", "Falkon", Sessions::Unreadable, "org.kde.falkon falkon", "falkon", ""},
    BrowserRow{"org.kde.konqueror", "Konqueror", Sessions::Unreadable, "org.kde.konqueror konqueror", "konqueror", ""},
    BrowserRow{"org.qutebrowser.qutebrowser", "qutebrowser", Sessions::Unreadable, "org.qutebrowser.qutebrowser",
               "qutebrowser", ""},
    BrowserRow{"midori", "Midori", Sessions::Unreadable, "midori org.midori_browser.Midori", "midori midori-browser",
               ""},
    BrowserRow{"waterfox", "Waterfox", Sessions::Unreadable, "waterfox net.waterfox.waterfox", "waterfox waterfox-bin",
               "waterfox-default"},
    BrowserRow{"floorp", "Floorp", Sessions::Unreadable, "floorp one.ablaze.floorp", "floorp floorp-bin",
               "floorp-default"},
    BrowserRow{"zen", "Zen", Sessions::Unreadable, "zen zen-browser app.zen_browser.zen", "zen zen-bin zen-browser",
               "zen-alpha zen-beta"},
    BrowserRow{"palemoon", "Pale Moon", Sessions::Unreadable, "palemoon", "palemoon palemoon-bin", "pale-moon"},
    BrowserRow{"seamonkey", "SeaMonkey", Sessions::Unreadable, "seamonkey", "seamonkey seamonkey-bin", ""},
    BrowserRow{"icecat", "IceCat", Sessions::Unreadable, "icecat", "icecat", ""},
    BrowserRow{"netsurf", "NetSurf", Sessions::Unreadable, "netsurf netsurf-gtk", "netsurf netsurf-gtk netsurf-gtk3",
               ""},
    BrowserRow{"dillo", "Dillo", Sessions::Unreadable, "dillo", "dillo dillo-fltk", ""},
    BrowserRow{"surf", "surf", Sessions::Unreadable, "surf", "surf", ""},
    BrowserRow{"luakit", "luakit", Sessions::Unreadable, "luakit", "luakit", ""},
    BrowserRow{"vimb", "vimb", Sessions::Unreadable, "vimb", "vimb", ""},
    BrowserRow{"nyxt", "Nyxt", Sessions::Unreadable, "nyxt engineer.atlas.Nyxt", "nyxt", ""},
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(' ', Qt::SkipEmptyParts);
}

KnownBrowser known(const BrowserRow &row)
{
    KnownBrowser browser{QString::fromLatin1(row.id), QString::fromLatin1(row.name)};
    if (row.sessions != Sessions::Unreadable)
        browser.family = row.sessions == Sessions::Firefox ? BrowserFamily::Firefox : BrowserFamily::Chromium;
    return browser;
}

template <typename Test>
const BrowserRow *rowWhere(Test test)
{
    const auto *const row = std::find_if(browserTable.begin(), browserTable.end(), test);
    return row == browserTable.end() ? nullptr : row;
}

std::optional<KnownBrowser> asKnown(const BrowserRow *row)
{
    return row ? std::optional(known(*row)) : std::nullopt;
}

const BrowserRow *rowOfID(const QString &id)
{
    return rowWhere([&](const BrowserRow &row) { return id.compare(QLatin1String(row.id), Qt::CaseInsensitive) == 0; });
}

const BrowserRow *rowOfFile(const QString &file)
{
    return rowWhere([&](const BrowserRow &row) { return words(row.files).contains(file, Qt::CaseInsensitive); });
}

} // namespace

std::optional<KnownBrowser> BrowserIdentities::ofProgram(QString program)
{
    // An upgrade replaces the program of a running browser.
    if (program.endsWith(" (deleted)"))
        program.chop(10);
    const QString name = program.mid(program.lastIndexOf('/') + 1).toLower();
    // The browsers that this one was made from kept its program's name.
    if (name == "chrome" && program.contains("chromium", Qt::CaseInsensitive))
        return asKnown(rowOfID("org.chromium.Chromium"));
    return asKnown(rowWhere([&](const BrowserRow &row) { return words(row.programs).contains(name); }));
}

std::optional<KnownBrowser> BrowserIdentities::named(const QString &name)
{
    QString key = WindowClass::isIdentifier(name) ? name.mid(WindowClass::prefix.size()) : name;
    key = key.toLower().replace(' ', '-');
    return asKnown(rowWhere([&](const BrowserRow &row) {
        return key == QString::fromLatin1(row.id).toLower() || words(row.files).contains(key, Qt::CaseInsensitive) ||
               words(row.programs).contains(key) || words(row.classes).contains(key);
    }));
}

QString BrowserIdentities::applicationID(const QString &desktopFileID)
{
    const BrowserRow *const row = rowOfFile(desktopFileID);
    return row ? QString::fromLatin1(row->id) : desktopFileID;
}

QStringList BrowserIdentities::desktopFileIDs(const QString &applicationID)
{
    const BrowserRow *const row = rowOfID(applicationID);
    return row ? words(row->files) : QStringList{applicationID};
}

} // namespace ardeno
