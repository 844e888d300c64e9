// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopEntries.h"

#include "platform/linux/applications/DesktopFileSummary.h"
#include "platform/linux/browsers/BrowserIdentities.h"
#include "tests/platform/linux/InstalledApplications.h"

using namespace ardeno;

TEST_CASE_FIXTURE(InstalledApplications, "an application is found by its identifier in any letter case")
{
    install("org.example.Editor", "Name=Editor\nName[de]=Schreiber\nIcon=editor-icon\nExec=true %U");
    install("kde/player", "Name=Player\nExec=true");

    const auto editor = entries.find("org.example.editor");
    REQUIRE(editor.has_value());
    CHECK(editor->id == "org.example.Editor");
    CHECK(editor->name == "Editor");
    CHECK(editor->iconName == "editor-icon");
    CHECK(idOf(entries.find("kde-player")) == "kde-player");
    CHECK(idOf(entries.find("org.example.Absent")) == "none");
    CHECK(idOf(entries.find("")) == "none");
    CHECK(idOf(entries.find("../system/org.example.Editor")) == "none");
}

TEST_CASE_FIXTURE(InstalledApplications, "a user's own desktop file hides the system's")
{
    install("one", "Name=System's\nExec=true\nStartupWMClass=One");
    install("two", "Name=Two\nExec=true\nStartupWMClass=Two");
    install("one", "Name=User's\nExec=true\nStartupWMClass=One", "user");
    install("two", "Name=Two\nExec=true\nHidden=true", "user");

    const QList<DesktopEntry> one = entries.findByWindowName("One");
    REQUIRE(one.size() == 1);
    CHECK(one.first().name == "User's");
    CHECK(idOf(entries.find("two")) == "none");
    CHECK(idOf(entries.findByWindowName("Two")) == "none");
}

TEST_CASE_FIXTURE(InstalledApplications, "a window's name is looked for as applications write theirs, shown ones first")
{
    install("a", "Name=A\nExec=true\nStartupWMClass=Shared");
    install("b", "Name=B\nExec=true\nStartupWMClass=shared");
    install("c", "Name=C\nExec=true\nStartupWMClass=Own\n[Desktop Action New]\nStartupWMClass=Action");
    install("org.test.Viewer", "Name=Viewer\nExec=true");
    install("org.test.viewer_importer", "Name=Importer\nExec=true\nNoDisplay=true\nStartupWMClass=viewer");
    install("org.test.Hidden", "Name=Hidden\nExec=true\nNoDisplay=true");
    install("removed", "Name=Removed\nExec=true\nHidden=true\nStartupWMClass=removed");

    CHECK(idOf(entries.findByWindowName("Shared")) == "a+b");
    CHECK(idOf(entries.findByWindowName("own")) == "c");
    CHECK(idOf(entries.findByWindowName("Action")) == "none");
    CHECK(idOf(entries.findByWindowName("")) == "none");
    CHECK(idOf(entries.findByWindowName("viewer")) == "org.test.Viewer");
    CHECK(idOf(entries.findByWindowName("net-example-viewer-Viewer")) == "org.test.Viewer");
    CHECK(idOf(entries.findByWindowName("org.test.hidden")) == "org.test.Hidden");
    CHECK(idOf(entries.findByWindowName("removed")) == "none");
}

TEST_CASE_FIXTURE(InstalledApplications, "a process is matched to the one application whose command fits best")
{
    const QString program = QFileInfo("/bin/sh").canonicalFilePath();
    install("plain", "Name=Plain\nExec=/bin/sh %U");
    install("special", "Name=Special\nExec=sh --special %F");
    install("tool", "Name=Tool\nExec=sh --tool\nNoDisplay=true");
    CHECK(idOf(entries.findByCommand(program, {"file"})) == "plain");
    CHECK(idOf(entries.findByCommand(program, {"--special", "file"})) == "special");
    CHECK(idOf(entries.findByCommand(program, {"--tool"})) == "plain");
    CHECK(idOf(entries.findByCommand("/bin/other", {})) == "none");

    install("rival", "Name=Rival\nExec=\"/bin/sh\"");
    CHECK_MESSAGE(idOf(entries.findByCommand(program, {})) == "plain+rival", "two applications fit equally well");
    CHECK(idOf(entries.findByCommand(program, {"--special"})) == "special");
}

TEST_CASE_FIXTURE(InstalledApplications, "applications that come and go are noticed")
{
    CHECK(entries.shown().isEmpty());
    install("new", "Name=New\nExec=true");
    CHECK(idOf(entries.find("new")) == "new");
    CHECK(entries.shown().size() == 1);
    QFile::remove(folder.filePath("system/new.desktop"));
    CHECK(idOf(entries.find("new")) == "none");
}

TEST_CASE_FIXTURE(InstalledApplications, "damaged desktop files are left out and harm nothing")
{
    install("good", "Name=Good\nExec=true\nStartupWMClass=Good");
    install("gone", "Name=Gone\nExec=/no/such/program\nStartupWMClass=Gone");
    install("quote", "Name=Quote\nExec=\"unfinished\nStartupWMClass=Quote");
    for (const QByteArray &bytes : {QByteArray(), QByteArray("\0\xff\xfe[Desktop", 11), QByteArray("[Desktop Entry]"),
                                    QByteArray("[Desktop Entry]\nName\n=\n[\n]\nExec=="), QByteArray(200000, '[')}) {
        writeFile(folder.filePath("system/damaged.desktop"), bytes);
        DesktopEntries fresh{{folder.filePath("system")}};
        CHECK(idOf(fresh.find("damaged")) == "none");
        CHECK(idOf(fresh.findByWindowName("Gone")) == "none");
        CHECK(idOf(fresh.findByWindowName("Good")) == "good");
        CHECK(idOf(fresh.findByCommand("/bin/damaged", {})) == "none");
        CHECK(fresh.shown().size() == 1);
    }
}

TEST_CASE_FIXTURE(InstalledApplications, "menus show what is meant for them, a browser under its own identifier")
{
    install("shown", "Name=Shown\nExec=true");
    install("tool", "Name=Tool\nExec=true\nNoDisplay=true");
    install("firefox-esr", "Name=Firefox ESR\nExec=true");

    QStringList ids;
    for (const DesktopEntry &entry : entries.shown())
        ids.append(entry.id);
    ids.sort();
    CHECK(ids == QStringList{"org.mozilla.firefox", "shown"});
    CHECK(idOf(entries.find("org.mozilla.firefox")) == "org.mozilla.firefox");
    CHECK(entries.find("org.mozilla.firefox")->path.endsWith("firefox-esr.desktop"));

    install("pages", "Name=Pages\nExec=true\nCategories=GNOME;WebBrowser;");
    CHECK(entries.find("pages")->isBrowser);
    CHECK(entries.find("org.mozilla.firefox")->isBrowser);
    CHECK_FALSE(entries.find("shown")->isBrowser);
}

TEST_CASE("every package of a browser leads to the browser's identifier, nothing else does")
{
    struct Case {
        const char *file;
        const char *id;
    };

    for (const Case &tried :
         {Case{"google-chrome", "com.google.Chrome"}, Case{"chromium", "org.chromium.Chromium"},
          Case{"chromium_chromium", "org.chromium.Chromium"}, Case{"Firefox", "org.mozilla.firefox"},
          Case{"brave_brave", "com.brave.Browser"}, Case{"chromium-browser", "org.chromium.Chromium"},
          Case{"ungoogled-chromium", "org.chromium.Chromium"}, Case{"chromium-bsu", "chromium-bsu"}}) {
        CAPTURE(tried.file);
        CHECK(BrowserIdentities::applicationID(tried.file) == tried.id);
    }
    for (const Case &tried :
         {Case{"/opt/google/chrome-beta/chrome (deleted)", "com.google.Chrome"},
          Case{"/snap/chromium/9/usr/lib/chromium-browser/chrome", "org.chromium.Chromium"},
          Case{"/opt/firefox-nightly/firefox-bin", "org.mozilla.firefox"}, Case{"brave", "com.brave.Browser"},
          Case{"/opt/vivaldi/vivaldi-bin", "vivaldi-stable"}, Case{"/usr/bin/epiphany", "org.gnome.Epiphany"},
          Case{"/usr/games/chromium-bsu", "none"}, Case{"", "none"}}) {
        CAPTURE(tried.file);
        CHECK(BrowserIdentities::ofProgram(tried.file).value_or(KnownBrowser{"none"}).id == tried.id);
    }
    for (const char *name : {"window-class/Tor Browser", "Falkon", "LibreWolf", "microsoft-edge-beta", "Opera"})
        CHECK_MESSAGE(BrowserIdentities::named(name).has_value(), name);
    CHECK_FALSE(BrowserIdentities::named("window-class/Xmessage").has_value());
    CHECK(BrowserIdentities::desktopFileIDs("org.example.Editor") == QStringList{"org.example.Editor"});
}
