// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/applications/DesktopLaunch.h"
#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11LiveWindows.h"
#include "tests/desktop/DesktopFile.h"
#include "tests/platform/x11desktop/SessionFixture.h"

#include <QSysInfo>

#include <unistd.h>

using namespace ardeno;
using desktop_test::Application;
using desktop_test::eventually;
using desktop_test::outputOf;

TEST_CASE_FIXTURE(SessionFixture, "real applications are known by the identifiers of their desktop files")
{
    struct Case {
        const char *program;
        QStringList arguments;
        const char *title;
        const char *id;
        const char *name;
    };

    const QList<Case> cases = {
        {"xterm", {"-title", "Terminal of the test"}, "Terminal of the test", "debian-xterm", "XTerm"},
        {"mousepad", {}, "Mousepad", "org.xfce.mousepad", "Mousepad"},
        {"evince", {}, "Document", "org.gnome.Evince", "Document Viewer"},
        {"thunar", {"/usr"}, "usr", "thunar", "Thunar File Manager"},
        {"chromium", desktop_test::chromiumArguments("data:text/html,<title>Page of the test</title>"),
         "Page of the test", "org.chromium.Chromium", "Chromium Web Browser"},
    };
    for (const Case &tried : cases) {
        CAPTURE(tried.program);
        Application application(tried.program, tried.arguments);
        const quint32 window = application.waitForWindow(tried.title);
        REQUIRE(window != 0);
        REQUIRE(eventually([&] { return onScreen(window).has_value(); }));

        const WindowInfo info = *onScreen(window);
        CHECK(info.applicationID == tried.id);
        CHECK(info.applicationName == tried.name);
        CHECK(info.processID == application.processID());
        CHECK(info.title.contains(tried.title));
        CHECK(info.isNormalLayer);
        const auto entry = running(tried.id);
        REQUIRE(entry.has_value());
        CHECK(*entry == RunningApplication{tried.id, tried.name, true});

        // A window without client-side shadows stands exactly where its frame does.
        if (!outputOf("xprop", {"-id", QString::number(window), "_GTK_FRAME_EXTENTS"}).contains('='))
            CHECK(eventually([&] { return onScreen(window)->frame == rectangle(topLevel(window)); }));

        application.end();
        CHECK(eventually([&] { return !running(tried.id); }));
    }
}

TEST_CASE_FIXTURE(SessionFixture,
                  "a window is attributed by the first of its hints that names an installed application")
{
    install("org.test.Gtk", "Name=Gtk");
    install("org.test.Kde", "Name=Kde");
    install("org.test.ByClass", "Name=By class\nStartupWMClass=TestClass");
    install("testfile", "Name=By file name");

    struct Case {
        const char *what;
        const char *gtk;
        const char *kde;
        const char *instance;
        const char *windowClass;
        const char *id;
    };

    for (const Case &tried : {
             Case{"all hints", "org.test.Gtk", "org.test.Kde", "testfile", "TestClass", "org.test.Gtk"},
             Case{"a name that is not installed", "org.test.Absent", "org.test.Kde", "x", "TestClass", "org.test.Kde"},
             Case{"a full file name", "", "org.test.Kde.desktop", "x", "y", "org.test.Kde"},
             Case{"the class before the file", "", "", "testfile", "TestClass", "org.test.ByClass"},
             Case{"the class before the instance", "", "", "TestClass", "Testfile", "testfile"},
             Case{"the instance like the class", "", "", "testclass", "Unknown", "org.test.ByClass"},
             Case{"the instance as a file", "", "", "TESTFILE", "Unknown", "testfile"},
             Case{"a path is no name", "../applications/org.test.Gtk", "", "/testfile", "", "window-class//testfile"},
             Case{"a class that no application has", "", "", "unknown", "Unknown", "window-class/Unknown"},
             Case{"nothing at all", "", "", "", "", "window-class/test_platform_x11desktop"},
         }) {
        CAPTURE(QString(tried.what));
        desktop_test::TestWindow window;
        window.setClass(tried.instance, tried.windowClass);
        window.setText("_GTK_APPLICATION_ID", tried.gtk);
        window.setText("_KDE_NET_WM_DESKTOP_FILE", tried.kde);
        window.show();
        CHECK(idOf(window.id()) == tried.id);
    }
}

TEST_CASE_FIXTURE(SessionFixture,
                  "what is not installed is an application by the class of its windows, unless they are another's")
{
    CHECK_FALSE(entries->find("window-class/Xmessage"));
    Application message("xmessage", {"-title", "not installed", "Hello"});
    REQUIRE(message.waitForWindow("not installed") != 0);
    CHECK(eventually([&] { return running("window-class/Xmessage").has_value(); }));
    CHECK(*running("window-class/Xmessage") == RunningApplication{"window-class/Xmessage", "Xmessage", true});

    install("org.test.Own", "Name=Own");
    install("org.test.Second", "Name=Second");
    desktop_test::TestWindow unknown;
    unknown.setClass("helper", "Helper");
    unknown.show();
    CHECK(idOf(unknown.id()) == "window-class/Helper");
    CHECK_FALSE(running("window-class/Helper")); // This very program is none of the user's applications.
    desktop_test::TestWindow own;
    own.setText("_GTK_APPLICATION_ID", "org.test.Own");
    own.show();
    CHECK(idOf(unknown.id()) == "org.test.Own");
    desktop_test::TestWindow second;
    second.setText("_GTK_APPLICATION_ID", "org.test.Second");
    second.show();
    CHECK(idOf(unknown.id()) == "none"); // Of which of the two, nobody knows.
}

TEST_CASE_FIXTURE(SessionFixture, "a window without hints is attributed by how its process was started")
{
    install("org.test.Launched", "Name=Launched");
    const QString launch = "GIO_LAUNCHED_DESKTOP_FILE=/any/org.test.Launched.desktop "
                           "GIO_LAUNCHED_DESKTOP_FILE_PID=%1 exec xterm -class Unknown -name unknown -title %2";
    {
        Application launched("bash", {"-c", launch.arg("$$", "launched")});
        const quint32 window = launched.waitForWindow("launched");
        REQUIRE(window != 0);
        CHECK(eventually([&] { return idOf(window) == "org.test.Launched"; }));
    }
    // The variable of a parent says nothing about its children: the program decides.
    Application inherited("bash", {"-c", launch.arg("1", "inherited")});
    const quint32 window = inherited.waitForWindow("inherited");
    REQUIRE(window != 0);
    CHECK(eventually([&] { return idOf(window) == "debian-xterm"; }));
}

TEST_CASE_FIXTURE(SessionFixture, "frames, clients and popups belong to the application of their process")
{
    Application editor("mousepad");
    const quint32 window = editor.waitForWindow("Mousepad");
    REQUIRE(window != 0);
    WindowOwners owners(*connection, *entries);
    const xcb_window_t frame = topLevel(window);
    REQUIRE(frame != window);
    const auto both = owners.owners({frame, window});
    CHECK(both[frame] == both[window]);
    CHECK(both[frame].client == window);
    CHECK(both[frame].processID == editor.processID());
    CHECK(both[frame].applicationID == "org.xfce.mousepad");

    // A menu, opened as a user does.
    const QList<xcb_window_t> before = WindowTree::topLevels(*connection);
    QList<xcb_window_t> menus;
    outputOf("xdotool", {"windowactivate", "--sync", QString::number(window)});
    outputOf("xdotool", {"key", "alt+f"});
    REQUIRE(eventually([&] {
        menus.clear();
        for (const xcb_window_t top : WindowTree::topLevels(*connection)) {
            const bool isLarge = rectangle(top).width > 50 && rectangle(top).height > 50;
            if (!before.contains(top) && isLarge)
                menus.append(top);
        }
        return !menus.isEmpty();
    }));
    for (const WindowOwner &menu : owners.owners(menus))
        CHECK(menu.applicationID == "org.xfce.mousepad");
}

TEST_CASE_FIXTURE(SessionFixture, "a popup that says nothing is attributed by the other windows of its process")
{
    install("org.test.Own", "Name=Own");
    desktop_test::TestWindow popup({500, 500, 80, 80}, desktop_test::TestWindow::Kind::Popup);
    popup.show();
    WindowOwners owners(*connection, *entries);
    CHECK_FALSE(owners.owners({popup.id()})[popup.id()].applicationID.has_value());
    CHECK(owners.owners({popup.id()})[popup.id()].processID == ::getpid());

    desktop_test::TestWindow window;
    window.setText("_GTK_APPLICATION_ID", "org.test.Own");
    window.show();
    CHECK(owners.owners({popup.id()})[popup.id()].applicationID == "org.test.Own");
    CHECK_MESSAGE(!onScreen(popup.id()).has_value(), "a popup is no window of the list");

    const xcb_window_t gone = 0x1fffffff;
    const WindowOwner nobody = owners.owners({gone})[gone];
    CHECK_FALSE(nobody.processID.has_value());
    CHECK_FALSE(nobody.applicationID.has_value());
}

TEST_CASE_FIXTURE(SessionFixture,
                  "a window of another machine has no process and no application here, but an excluded name")
{
    install("org.test.Own", "Name=Own\nStartupWMClass=OwnClass");
    for (const QByteArray &machine :
         {QByteArray(), QSysInfo::machineHostName().toUpper().toUtf8(), QByteArray("localhost")}) {
        desktop_test::TestWindow local;
        local.setClass("own", "OwnClass");
        local.setTitle(machine, "STRING", "WM_CLIENT_MACHINE");
        local.show();
        CHECK(idOf(local.id()) == "org.test.Own");
        CHECK(onScreen(local.id())->processID == ::getpid());
    }
    desktop_test::TestWindow remote;
    remote.setClass("own", "OwnClass");
    remote.setTitle("elsewhere", "STRING", "WM_CLIENT_MACHINE");
    remote.setCardinals("_NET_WM_PID", {quint32(::getpid())});
    remote.show();
    CHECK(idOf(remote.id()) == "window-class/OwnClass");
    CHECK_FALSE(onScreen(remote.id())->processID.has_value());
    workspace.setExcluded({"org.test.Own"}, {});
    CHECK(idOf(remote.id()) == "org.test.Own");
}

TEST_CASE_FIXTURE(SessionFixture, "every list names a window after the excluded application that it may be one of")
{
    install("org.test.Secret", "Name=Secret\nStartupWMClass=SecretClass");
    desktop_test::TestWindow secret;
    secret.setClass("x", "SecretClass");
    secret.show();
    Application dialog("xmessage", {"-title", "drawn for it", "Hello"});
    const quint32 drawn = dialog.waitForWindow("drawn for it");
    REQUIRE(drawn != 0);
    outputOf("xprop", {"-id", QString::number(drawn), "-f", "WM_TRANSIENT_FOR", "32x", "-set", "WM_TRANSIENT_FOR",
                       QString::number(secret.id())});
    CHECK(idOf(drawn) == "window-class/Xmessage");
    workspace.setExcluded({"org.test.Secret"}, {});
    CHECK(idOf(drawn) == "org.test.Secret");
    install("org.test.Copy", "Name=Copy\nStartupWMClass=SecretClass");
    CHECK(idOf(secret.id()) == "org.test.Secret");
    CHECK_FALSE(running("window-class/SecretClass"));
    CHECK(workspace.findApplication("ORG.test.secret")->id == "org.test.Secret");
    CHECK_FALSE(workspace.findApplication("SecretClass").has_value()); // Which of the two?
}

TEST_CASE_FIXTURE(SessionFixture,
                  "an application that the bus ought to start and nobody answers for is started by its command")
{
    const QString mark = QDir::homePath() + "/started";
    install("org.test.Ghost", "Name=Ghost\nDBusActivatable=true\nExec=touch " + mark.toUtf8());
    const DesktopEntry ghost = *entries->find("org.test.Ghost");
    CHECK(DesktopLaunch::open(ghost, {}).size() == 1);
    CHECK(eventually([&] { return QFile::exists(mark); }));
    desktop_test::writeDesktopFile(desktop_test::ownDesktopFiles(), "org.test.Ghost",
                                   "Name=Ghost\nDBusActivatable=true");
    CHECK_THROWS_AS(DesktopLaunch::open(ghost, {}), Failure);
}

TEST_CASE_FIXTURE(SessionFixture, "the workspace tells when applications come and go, until nobody asks")
{
    int changes = 0;
    workspace.setChangeHandler([&] { ++changes; });
    desktop_test::TestWindow window;
    window.show();
    CHECK(eventually([&] { return changes > 0; }));
    changes = 0;
    window.hide();
    CHECK(eventually([&] { return changes > 0; }));
    CHECK_MESSAGE(changes < 3, "changes in quick succession are told together");
    workspace.setChangeHandler({});
}

TEST_CASE_FIXTURE(SessionFixture, "a window may be a browser's by its title alone, whatever its program is called")
{
    const LiveWindowList live = x11LiveWindows(connection, entries);
    for (const auto &[title, isBrowser] : {std::pair{"Secret - Chromium", true},
                                           {"Geheim — Mozilla Firefox Privater Modus", true},
                                           {"a - b - Brave", true},
                                           {"notes.txt - Editor", false},
                                           {"Chromium", false}}) {
        CAPTURE(title);
        desktop_test::TestWindow window;
        window.setTitle(title);
        window.setClass("zed", "Zed");
        window.show();
        const QList<LiveWindow> windows = live().value_or(QList<LiveWindow>());
        REQUIRE(windows.size() == 1);
        CHECK(windows.first().isBrowser == isBrowser);
    }
}
