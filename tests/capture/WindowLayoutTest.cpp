// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowLayout.h"

#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"

#include <doctest/doctest.h>

#include <utility>

using namespace ardeno;

namespace {

constexpr qint64 ownProcessID = 77;

// A desktop with two displays.
struct TwoDisplays {
    fakes::InMemoryDesktop memory;
    Desktop desktop = memory.makeDesktop();

    TwoDisplays()
    {
        memory.displays = {
            Display{.id = 1, .name = "Left", .bounds = {0, 0, 1000, 800}, .usableFrame = {0, 30, 1000, 770}},
            Display{.id = 2, .bounds = {1000, 0, 1000, 800}, .usableFrame = {1000, 0, 1000, 800}, .isMain = true}};
    }

    QList<SavedWindow> layout(const QList<SavedApp> &apps) const
    {
        return WindowLayout::windows(apps, *desktop.windowServer, ownProcessID);
    }
};

WindowInfo editorWindow(const WindowRect &frame = {10, 40, 400, 300})
{
    return {.windowID = 5,
            .processID = 42,
            .applicationID = "org.example.Editor",
            .applicationName = "Editor",
            .title = "notes.txt",
            .frame = frame,
            .isNormalLayer = true};
}

const QList<SavedApp> editor = {{"org.example.Editor", "Editor"}};

} // namespace

TEST_CASE_FIXTURE(TwoDisplays, "a window is recorded with everything that placing it needs")
{
    memory.windows = {editorWindow(), editorWindow({1200, 100, 400, 300})};
    memory.windows[1].windowID = 6;
    memory.windows[1].applicationName = "";
    memory.windows[1].title = "";

    const QList<SavedWindow> recorded = layout(editor);

    REQUIRE(recorded.size() == 2);
    SavedWindow expected = recorded[0];
    CHECK_FALSE(expected.id.isNull());
    CHECK(expected.id != recorded[1].id);
    CHECK(expected.appID == "org.example.Editor");
    CHECK(expected.appName == "Editor");
    CHECK(expected.title == "notes.txt");
    CHECK(expected.frame == WindowRect{10, 40, 400, 300});
    CHECK(expected.displayID == 1);
    CHECK(expected.displayFrame == WindowRect{0, 30, 1000, 770});
    CHECK(expected.displayName == "Left");
    CHECK(expected.windowID == 5);
    CHECK(expected.processID == 42);
    CHECK_FALSE(expected.locationURL.has_value());
    CHECK_FALSE(expected.documentURL.has_value());
    CHECK_MESSAGE(recorded[1].appName == "org.example.Editor", "the identifier stands in for a missing name");
    CHECK_FALSE_MESSAGE(recorded[1].displayName.has_value(), "a display without a name");
    CHECK(recorded[1].windowID == 6);
}

TEST_CASE_FIXTURE(TwoDisplays, "only windows that belong to a layout are recorded")
{
    struct Case {
        const char *what;
        WindowInfo window;
        bool isRecorded;
    };

    const auto changed = [](auto change) {
        WindowInfo window = editorWindow();
        change(window);
        return window;
    };
    const QList<Case> cases = {
        {"smallest size", editorWindow({0, 0, 100, 60}), true},
        {"99 points wide", editorWindow({0, 0, 99, 60}), false},
        {"a fraction too narrow", editorWindow({0, 0, 99.9, 60}), false},
        {"59 points high", editorWindow({0, 0, 100, 59}), false},
        {"of this process", changed([](auto &window) { window.processID = ownProcessID; }), false},
        {"of nobody", changed([](auto &window) { window.processID.reset(); }), false},
        {"of no application", changed([](auto &window) { window.applicationID.reset(); }), false},
        {"of another application", changed([](auto &window) { window.applicationID = "org.example.Mail"; }), false},
        {"identifiers differ in case", changed([](auto &window) { window.applicationID = "org.example.editor"; }),
         false},
        {"a panel", changed([](auto &window) { window.isNormalLayer = false; }), false},
        {"without bounds", changed([](auto &window) { window.frame.reset(); }), false},
        {"without a number", changed([](auto &window) { window.windowID = 0; }), false},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString(tried.what));
        memory.windows = {tried.window};
        CHECK(layout(editor).isEmpty() != tried.isRecorded);
    }
}

TEST_CASE_FIXTURE(TwoDisplays, "windows out of sight are recorded with their virtual desktops and how they stand")
{
    memory.virtualDesktops = {"Work", ""};
    memory.windows = {editorWindow(), editorWindow(), editorWindow(), editorWindow()};
    memory.windows[0].states = {"minimised", "above"};
    memory.windows[0].desktop = 0;
    memory.windows[1].desktop = 1;
    memory.windows[1].states = QList<QString>();
    memory.windows[2].states = {"onAllDesktops"};
    for (WindowInfo &window : memory.windows)
        window.isOnScreen = false; // Nobody looks after the last one.

    QList<SavedWindow> windows = layout(editor);

    REQUIRE(windows.size() == 3);
    CHECK(windows[0].states == QList<QString>{"minimised", "above"});
    CHECK(windows[0].desktop == 0);
    CHECK(windows[0].desktopName == "Work");
    CHECK(windows[1].states == QList<QString>());
    CHECK(windows[1].desktop == 1);
    CHECK_FALSE(windows[1].desktopName.has_value());
    CHECK_FALSE(windows[2].desktop.has_value());

    memory.virtualDesktops = {"The only one"};
    windows = layout(editor);
    CHECK_FALSE(windows[0].desktop.has_value());
}

TEST_CASE_FIXTURE(TwoDisplays, "without a display or an application no window is recorded")
{
    memory.windows = {editorWindow()};
    CHECK(layout({}).isEmpty());
    memory.displays.clear();
    CHECK(layout(editor).isEmpty());
}

TEST_CASE("a window belongs to the display that holds the larger part of it")
{
    const QList<WindowLayout::DisplayEntry> displays = {
        {1, {0, 0, 1000, 800}}, {2, {1000, 0, 1000, 800}}, {3, {0, 800, 2000, 800}}};

    struct Case {
        const char *what;
        WindowRect frame;
        qsizetype display;
    };

    const QList<Case> cases = {
        {"an even split goes to the earlier one", {900, 10, 200, 100}, 0},
        {"one point more on the second", {901, 10, 200, 100}, 1},
        {"an even split of later ones", {1100, 700, 200, 200}, 1},
        {"mostly on the third", {500, 790, 1000, 500}, 2},
        {"off every display", {5000, 5000, 200, 100}, 0},
        {"touching only", {-200, 0, 200, 100}, 0},
        {"covering all", {0, 0, 2000, 1600}, 2},
    };
    for (const Case &tried : cases) {
        CAPTURE(QString(tried.what));
        CHECK(WindowLayout::bestDisplay(tried.frame, displays) == tried.display);
    }
    CHECK_FALSE(WindowLayout::bestDisplay({0, 0, 100, 100}, {}).has_value());
}

TEST_CASE("what a window shows is told by the window itself, or else by a title that only one location has")
{
    struct Case {
        const char *what;
        QString title;
        QList<WindowLocation> locations;
        std::optional<QString> path;
    };

    const QList<Case> cases = {
        {"the only one of its title", "notes.txt", {{"notes.txt", "/a/notes.txt"}, {"b", "/b"}}, "/a/notes.txt"},
        {"none of its title", "notes.txt", {{"Notes.txt", "/a/Notes.txt"}}, std::nullopt},
        {"two of its title", "notes.txt", {{"notes.txt", "/a/notes.txt"}, {"notes.txt", "/b/notes.txt"}}, std::nullopt},
        {"two of its title with one path", "notes.txt", {{"notes.txt", "/a"}, {"notes.txt", "/a"}}, std::nullopt},
        {"no title", "", {{"", "/a/notes.txt"}}, std::nullopt},
        {"the very window", "notes.txt", {{"notes.txt", "/a", 4}, {"notes.txt", "/b", 5}}, "/b"},
        {"the very window without a title", "", {{"", "/b", 5}}, "/b"},
        {"the very window under its former title", "notes.txt", {{"old", "/b", 5}}, "/b"},
        {"another window of its title", "notes.txt", {{"notes.txt", "/a", 4}}, std::nullopt},
        {"a window and a title", "notes.txt", {{"notes.txt", "/a", 4}, {"notes.txt", "/b"}}, std::nullopt},
        {"another process", "notes.txt", {{"notes.txt", "/a", {}, 43}}, std::nullopt},
        {"a title in two processes", "notes.txt", {{"notes.txt", "/a", {}, 43}, {"notes.txt", "/b", {}, 42}}, "/b"},
    };
    for (const Case &tried : cases) {
        CAPTURE(tried.what);
        SavedWindow window;
        window.title = tried.title;
        window.windowID = 5;
        window.processID = 42;
        CHECK(WindowLayout::location(window, tried.locations) == tried.path);
    }
}

TEST_CASE("folders belong to windows of file browsers, documents to all others, each process asked about once")
{
    fakes::InMemoryDesktop memory;
    memory.addDisplay(1, {0, 0, 1000, 800});
    memory.addApplication("files", "Files", {0, 0, 400, 300}, "Thesis");
    memory.addApplication("editor", "Editor", {0, 0, 400, 300}, "notes.txt");
    memory.addApplication("unsaved", "Unsaved", {0, 0, 400, 300}, "Thesis");
    memory.windows.append(memory.windows[1]);
    memory.windows.last().windowID = 9;
    memory.windows.last().title = "Thesis";
    memory.folders = {{"Thesis", "/home/me/Thesis"}, {"notes.txt", "/home/me/notes.txt"}};
    memory.documents = {{"notes.txt", "/home/me/notes.txt", {}, 1002}, {"Thesis", "/home/me/Thesis.odt", {}, 1001}};
    Desktop desktop = memory.makeDesktop();
    desktop.roles.fileBrowserIDs = {"files"};
    const QList<SavedApp> apps = {{"files", "Files"}, {"editor", "Editor"}};

    const QList<SavedWindow> layout = blockOn(WindowLayout::capture(apps, desktop, {}, ownProcessID));

    REQUIRE(layout.size() == 3);
    CHECK(layout[0].locationURL == "/home/me/Thesis");
    CHECK_FALSE(layout[0].documentURL.has_value());
    CHECK(layout[1].documentURL == "/home/me/notes.txt");
    CHECK_FALSE(layout[1].locationURL.has_value());
    CHECK_FALSE_MESSAGE(layout[2].documentURL.has_value(), "a title that only a folder and another process have");
    CHECK(memory.processesAskedAbout == QList<QSet<qint64>>{{1002}});
}

TEST_CASE("a browser's window has a title only while it certainly shows an ordinary page that no rule leaves out")
{
    fakes::InMemoryDesktop memory;
    memory.addDisplay(1, {0, 0, 1000, 800});
    memory.addApplication("browser", "Browser", {0, 0, 400, 300}, "Related work (live) - Browser");
    memory.addApplication("editor", "Editor", {0, 0, 400, 300}, "notes.txt");
    memory.windows.append(memory.windows[0]);
    memory.windows.last().windowID = 9;
    memory.windows.last().title = "Secret";
    const quint32 first = memory.windows[0].windowID;
    memory.browserWindows[first] = ShownPage{"Balance 4711 - Browser", {"https://a.test/", "https://me@b.bank.test/"}};
    memory.browserWindows[9] = std::nullopt;
    const Desktop desktop = memory.makeDesktop();
    const QList<SavedApp> apps = {{"browser", "Browser"}, {"editor", "Editor"}};
    const auto titles = [&](const CaptureExclusions &rules) {
        QStringList all;
        for (const SavedWindow &window : blockOn(WindowLayout::capture(apps, desktop, rules, ownProcessID)))
            all += window.title;
        return all;
    };

    CHECK(titles({}) == QStringList{"Balance 4711 - Browser", "notes.txt", ""});
    CHECK(titles({.domains = {"other.test"}}) == QStringList{"Balance 4711 - Browser", "notes.txt", ""});
    CHECK(titles({.domains = {"bank.test"}}) == QStringList{"", "notes.txt", ""});
}
