// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowRestore.h"

#include "support/Finish.h"
#include "tests/Printing.h"
#include "tests/fakes/InMemoryDesktop.h"

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

    void save(const QString &app, const QString &title, const WindowRect &frame = savedFrame)
    {
        SavedWindow window;
        window.appID = app;
        window.title = title;
        window.frame = frame;
        window.displayID = 1;
        window.displayFrame = {0, 0, 1920, 1080};
        request.windows.append(window);
        request.allowedAppIDs.insert(app);
    }

    MovableWindow &open(quint32 id, const QString &app, const QString &title)
    {
        memory.movable.append({.windowID = id, .applicationID = app, .title = title, .frame = otherFrame});
        return memory.movable.last();
    }

    RestoreResult run() { return finish(WindowLayout::restore(request, *desktop.windowMover, *desktop.windowServer)); }

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
                                         "hung: application did not answer", "stubborn: not movable"});
    CHECK(memory.moves == QList<WindowMove>{{1, savedFrame}, {8, savedFrame}, {9, savedFrame}});
}

TEST_CASE_FIXTURE(RestoreFixture, "two saved windows of one title are never put on the one that is left")
{
    save("app", "Untitled");
    save("app", "Untitled", otherFrame);
    open(1, "app", "Untitled");
    CHECK(skipped(run()).size() == 2);
    CHECK(memory.moves.isEmpty());
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
    QTimer::singleShot(500, [&] { memory.movable[0].frame = {300, 300, 400, 300}; });
    CHECK(skipped(run()) == QStringList{"window: moved by you"});
    CHECK(memory.moves.isEmpty());
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

    CHECK(result.restoredCount == 2);
    CHECK(skipped(result) == QStringList{"me@host: ~/work: no such window"});
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
