// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowRestore.h"

#include "support/BlockOn.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

using namespace ardeno;
using namespace std::chrono_literals;

namespace {

const WindowRect savedFrame = {200, 100, 800, 600};
const WindowRect otherFrame = {10, 10, 400, 300};

struct RestoreFixture {
    fakes::InMemoryDesktop memory;
    Desktop desktop = memory.makeDesktop();
    WindowLayout::RestoreRequest request;

    RestoreFixture()
    {
        memory.addDisplay(1, {0, 0, 1920, 1080});
        request.firstWait = 1ms;
        request.patience = 2s;
    }

    SavedWindow &save(const QString &app, const QString &title, const WindowRect &frame = savedFrame)
    {
        SavedWindow window;
        window.appID = app;
        window.title = title;
        window.frame = frame;
        window.displayID = 1;
        window.displayFrame = {0, 0, 1920, 1080};
        request.windows.append(window);
        request.allowedAppIDs.insert(app);
        return request.windows.last();
    }

    MovableWindow &open(quint32 id, const QString &app, const QString &title)
    {
        memory.movable.append({.windowID = id, .applicationID = app, .title = title, .frame = otherFrame});
        return memory.movable.last();
    }

    RestoreResult run() { return blockOn(WindowLayout::restore(request, desktop)); }

    // "TITLE: REASON" of each window left alone.
    static QStringList skipped(const RestoreResult &result)
    {
        QStringList lines;
        for (const SkippedWindow &window : result.skipped)
            lines += window.title + ": " + window.reason;
        CHECK(result.skippedCount == lines.size());
        return lines;
    }
};

} // namespace

TEST_CASE_FIXTURE(RestoreFixture, "only windows that are certain go back, and each one left alone has its reason")
{
    for (const char *title : {"placed", "twice", "minimised", "full", "maximised", "fixed", "hung", "stubborn", "gone"})
        save("app", title);
    open(1, "app", "placed");
    open(2, "app", "twice");
    open(3, "app", "twice");
    open(4, "app", "minimised").isMinimised = true;
    open(5, "app", "full").isFullScreen = true;
    open(6, "app", "maximised").isMaximised = true;
    open(7, "app", "fixed").canResize = false;
    open(8, "app", "hung");
    open(9, "app", "stubborn");
    open(10, "other", "gone"); // Of another application.
    memory.moveResults = {{8, MoveResult::NotAnswering}, {9, MoveResult::Refused}};

    const RestoreResult result = run();

    CHECK(result.restoredCount == 1);
    CHECK_FALSE(result.accessibilityRequired);
    CHECK(skipped(result) == QStringList{"twice: several with that title", "minimised: minimised", "full: full screen",
                                         "maximised: maximised", "fixed: not movable", "gone: no such window",
                                         "stubborn: not movable", "hung: application did not answer"});
    CHECK(memory.moves.first(3) == QList<WindowMove>{{1, savedFrame}, {8, savedFrame}, {9, savedFrame}});
}

TEST_CASE_FIXTURE(RestoreFixture, "a window that cannot be resized is still moved when its size is right")
{
    save("app", "fixed", {500, 500, otherFrame.width, otherFrame.height});
    open(1, "app", "fixed").canResize = false;
    CHECK(run().restoredCount == 1);
}

TEST_CASE_FIXTURE(RestoreFixture, "windows of applications that were not chosen are neither touched nor counted")
{
    save("app", "window");
    open(1, "app", "window");
    request.allowedAppIDs = {"another"};
    CHECK(run() == RestoreResult());
    CHECK(memory.moves.isEmpty());
}

TEST_CASE_FIXTURE(RestoreFixture, "a window that the user moves before it is placed stays where the user put it")
{
    save("app", "window");
    open(1, "app", "window");
    request.firstWait = 600ms;
    bool isUser = true;
    SUBCASE("dragged, and let go before it is looked at")
    {
        memory.input = {.x = 100, .y = 15, .isButtonDown = true};
    }
    SUBCASE("by keys")
    {
        memory.input = {.isKeyDown = true, .activeWindow = 1};
    }
    SUBCASE("a button elsewhere, while the application moves it")
    {
        memory.input = {.x = 1500, .y = 900, .isButtonDown = true};
        isUser = false;
    }
    SUBCASE("keys for another window")
    {
        memory.input = {.isKeyDown = true, .activeWindow = 2};
        isUser = false;
    }
    SUBCASE("nobody touches anything")
    {
        isUser = false;
    }
    QTimer::singleShot(400, [&] { memory.movable[0].frame = {300, 300, 400, 300}; });
    QTimer::singleShot(450, [&] { memory.input = {}; });
    const RestoreResult result = run();
    CHECK(skipped(result) == (isUser ? QStringList{"window: moved by you"} : QStringList()));
    CHECK(memory.moves.isEmpty() == isUser);
}

TEST_CASE_FIXTURE(RestoreFixture,
                  "windows come back to their virtual desktops and as they stood; the user's keep theirs")
{
    memory.virtualDesktops = {"Work", "Mail"};
    const auto saveAs = [this](const QString &title, const QList<QString> &states, qint64 number, const QString &name) {
        SavedWindow &window = save("app", title);
        window.states = states;
        window.desktop = number;
        window.desktopName = name;
        request.awaitedIDs.insert(window.id);
    };
    const auto openOn = [this](quint32 id, const QString &title, const QList<QString> &states, quint32 number) {
        MovableWindow &window = open(id, "app", title);
        window.states = states;
        window.desktop = number;
        window.isMinimised = states.contains("minimised");
        window.isMaximised = states.contains("maximisedAcross");
        return window.windowID;
    };
    const QList<QString> full = {"maximisedAcross", "maximisedDown"};

    SUBCASE("of windows that were there")
    {
        saveAs("away", {}, 0, "Mail"); // The name counts: desktops were put in another order.
        saveAs("small", {"minimised"}, 0, "Work");
        saveAs("front", {"minimised"}, 1, "Mail");
        saveAs("wide", full, 0, "Work");
        saveAs("pinned", {}, 0, "Work");
        saveAs("lost", {}, 7, "Play");
        saveAs("hidden", {}, 0, "Work");
        saveAs("spread", {}, 0, "Work");
        openOn(1, "away", {}, 0);
        openOn(2, "small", {}, 0);
        memory.input.activeWindow = openOn(3, "front", {}, 0);
        openOn(4, "wide", {}, 0);
        openOn(5, "pinned", {"above"}, 0);
        openOn(6, "lost", {}, 0);
        openOn(7, "hidden", {"minimised"}, 0);
        openOn(8, "spread", full, 0);
        request.awaitedIDs.clear();
        CHECK(skipped(run()) == QStringList{"hidden: minimised", "spread: maximised", "front: you are working in it",
                                            "lost: its virtual desktop is gone"});
        CHECK(memory.movable[0].desktop == 1);
        CHECK(memory.movable[1].states == QList<QString>{"minimised"});
        CHECK_MESSAGE(memory.movable[2].states == QList<QString>(), "nothing is taken from under the user's hands");
        CHECK(memory.movable[2].desktop == 0);
        CHECK(memory.movable[3].states == full);
        CHECK(memory.movable[4].states == QList<QString>{"above"});
        CHECK_MESSAGE(memory.movable[5].frame == savedFrame, "as far as can be");
        memory.moves.clear();
        memory.input.activeWindow = 0;
        for (MovableWindow &window : memory.movable) {
            window.isMinimised = window.states->contains("minimised");
            window.isMaximised = window.states->contains("maximisedAcross");
        }
        run();
        CHECK_MESSAGE(memory.moves.size() == 1, "only what the user worked with");
    }
    SUBCASE("of windows that came with it")
    {
        saveAs("plain", {}, 1, "Mail");
        saveAs("wide", full, 0, "Work");
        QTimer::singleShot(100, [&] {
            openOn(1, "plain", full, 0); // Such an application maximises itself.
            openOn(2, "wide", {}, 0);
        });
        CHECK(run().restoredCount == 2);
        CHECK(memory.movable[0].states == QList<QString>());
        CHECK(memory.movable[0].frame == savedFrame);
        CHECK(memory.movable[0].desktop == 1);
        CHECK(memory.movable[1].states == full);
    }
    SUBCASE("nothing is known of how it stood")
    {
        saveAs("plain", {}, 0, "Work");
        request.windows[0].states.reset();
        QTimer::singleShot(100, [&] { openOn(1, "plain", full, 0); });
        CHECK(skipped(run()) == QStringList{"plain: maximised"});
    }
}

TEST_CASE_FIXTURE(RestoreFixture, "late windows of started applications are awaited, those of others are not")
{
    save("started", "late");
    save("running", "late");
    save("started", "never");
    request.awaitedIDs = {request.windows[0].id, request.windows[2].id};
    QTimer::singleShot(300, [&] {
        open(1, "started", "splash");
        open(2, "running", "late");
    });
    QTimer::singleShot(500, [&] { memory.movable[0].title = "late"; });
    // The application goes back to a size of its own once.
    QTimer::singleShot(1000, [&] { memory.movable[0].frame.width = 300; });

    const RestoreResult result = run();

    CHECK(result.restoredCount == 1);
    CHECK(skipped(result) == QStringList{"late: no such window", "never: no such window"});
    CHECK(memory.movable[0].frame == savedFrame);
    CHECK(memory.movable[1].frame == otherFrame);
}

TEST_CASE_FIXTURE(RestoreFixture, "titles that do not come back are waited for only while something is starting")
{
    save("terminal", "me@host: ~/work");
    save("editor", "slow.txt");
    save("editor", "slower.txt");
    request.awaitedIDs = {request.windows[0].id, request.windows[1].id, request.windows[2].id};
    request.patience = 1h;
    QSet<QString> starting = {"terminal", "editor"};
    request.isStarting = [&](const QString &app) { return starting.contains(app); };
    QTimer::singleShot(300, [&] {
        open(1, "terminal", "me@host: ~");
        starting.remove("terminal");
    });
    // One window after the other, and each gets its title late.
    QTimer::singleShot(2500, [&] {
        open(2, "editor", "Untitled");
        starting.remove("editor");
    });
    QTimer::singleShot(4000, [&] { memory.movable[1].title = "slow.txt"; });
    QTimer::singleShot(5500, [&] { open(3, "editor", "slower.txt"); });

    const RestoreResult result = run();

    CHECK_MESSAGE(result.restoredCount == 3, "the terminal's only window, once no title is to come any more");
    CHECK(memory.movable[0].frame == savedFrame);
}

TEST_CASE_FIXTURE(RestoreFixture, "without consent nothing is counted, without a way to move everything is skipped")
{
    save("app", "window");
    open(1, "app", "window");
    memory.moving = {Capability::State::NeedsConsent, "Ask."};
    CHECK(run() == RestoreResult{.accessibilityRequired = true});
    memory.moving = Capability::unavailable("No window manager.");
    CHECK(skipped(run()) == QStringList{"window: No window manager."});
    CHECK(memory.moves.isEmpty());
}

TEST_CASE_FIXTURE(RestoreFixture, "a window that is right is counted and left alone, whatever kind it is")
{
    const WindowRect outside = {-300, 100, 400, 300}; // No window would be put there.
    for (const char *title : {"maximised", "full", "fixed", "stuck", "plain"})
        save("app", title, outside);
    quint32 id = 0;
    for (const SavedWindow &window : std::as_const(request.windows))
        open(++id, "app", window.title).frame = outside;
    memory.movable[0].isMaximised = true;
    memory.movable[1].isFullScreen = true;
    memory.movable[2].canResize = false;
    memory.movable[3].canMove = false;
    CHECK(run().restoredCount == 5);
    CHECK(memory.moves.isEmpty());
}

TEST_CASE_FIXTURE(RestoreFixture, "an application that is busy is asked again")
{
    save("app", "busy");
    open(1, "app", "busy");
    memory.moveResults = {{1, MoveResult::NotAnswering}};
    QTimer::singleShot(500, [&] { memory.moveResults.clear(); });
    CHECK(run().restoredCount == 1);
    CHECK(memory.movable[0].frame == savedFrame);
}

namespace {

// Folders and documents of one name in two folders.
struct ContentsFixture : RestoreFixture {
    QTemporaryDir home;
    const WindowRect secondFrame = {330, 230, 800, 600};

    SavedWindow &saveShown(const QString &app, const QString &title, const QString &name, const WindowRect &frame)
    {
        QDir().mkpath(home.filePath(name));
        SavedWindow &window = save(app, title, frame);
        (app == "files" ? window.locationURL : window.documentURL) = home.filePath(name);
        return window;
    }

    // As if a window of this title showed it; windows of other applications are asked about by their process.
    void openShown(quint32 id, const QString &app, const QString &title, const QString &name)
    {
        QDir().mkpath(home.filePath(name));
        open(id, app, title);
        memory.windows.append({.windowID = id, .processID = 5, .applicationID = app});
        (app == "files" ? memory.folders : memory.documents).append({title, home.filePath(name), id, 5});
    }

    // What is open now is what there was before anything is opened.
    void look()
    {
        request.places = blockOn(WindowLayout::savedPlaces(request.windows, desktop));
        request.before = blockOn(WindowLayout::openPlaces(request.windows, request.places, desktop));
    }

    WindowRect frame(quint32 id) const { return memory.movable[id - 1].frame; }
};

} // namespace

TEST_CASE_FIXTURE(ContentsFixture, "a window that shows something else never gets a place; the right one is waited for")
{
    QString app = "editor";
    SUBCASE("documents") {}
    SUBCASE("folders")
    {
        app = "files";
    }
    saveShown(app, "Thesis", "Documents/Thesis", savedFrame);
    openShown(1, app, "Thesis", "Downloads/Thesis");
    look();
    CHECK(request.before->folders.size() + request.before->documentsByApp.value(app).size() == 1);
    request.awaitedIDs = {request.windows[0].id};
    SUBCASE("it comes late")
    {
        QTimer::singleShot(1200, [&] { openShown(2, app, "Thesis", "Documents/Thesis"); });
        CHECK(run().restoredCount == 1);
        CHECK(frame(2) == savedFrame);
    }
    SUBCASE("another one comes")
    {
        QTimer::singleShot(200, [&] { openShown(2, app, "Thesis", "Music/Thesis"); });
        CHECK(skipped(run()) == QStringList{"Thesis: no such window"});
        CHECK(frame(2) == otherFrame);
    }
    CHECK(frame(1) == otherFrame);
}

TEST_CASE_FIXTURE(ContentsFixture, "a window that is right keeps its place when another document opens in it")
{
    saveShown("editor", "first.txt", "first.txt", savedFrame);
    saveShown("editor", "second.txt", "second.txt", secondFrame);
    openShown(1, "editor", "second.txt", "second.txt");
    look();
    request.awaitedIDs = {request.windows[0].id};
    // The missing one becomes a tab of the window that is there.
    memory.movable[0].title = "first.txt";
    memory.documents[0].path = home.filePath("first.txt");

    CHECK(skipped(run()) == QStringList{"first.txt: shown in another window"});
    CHECK(frame(1) == secondFrame);

    // The next resume finds the first one, and misses the second one, whose place this is.
    look();
    request.awaitedIDs = {request.windows[1].id};
    memory.movable[0].title = "second.txt";
    memory.documents[0].path = home.filePath("second.txt");
    CHECK(run().restoredCount == 1);
    CHECK(frame(1) == secondFrame);
}
