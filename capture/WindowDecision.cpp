// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowDecision.h"

#include "model/WindowStates.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace ardeno::WindowLayout {

namespace reason {

const char *const noSuchWindow = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "no such window");
const char *const elsewhere = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "shown in another window");
const char *const several = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "several with that title");
const char *const notMovable = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "not movable");
const char *const notAnswering = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "application did not answer");
const char *const stopped = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "stopped by you");

namespace {

constexpr auto minimised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "minimised");
constexpr auto fullScreen = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "full screen");
constexpr auto maximised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "maximised");
constexpr auto movedByUser = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "moved by you");
constexpr auto desktopGone = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "its virtual desktop is gone");
constexpr auto inUse = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "you are working in it");

} // namespace

} // namespace reason

namespace {

// What holds a window where it is.
const QList<QString> holdingStates = {WindowStates::fullScreen, WindowStates::maximisedAcross,
                                      WindowStates::maximisedDown};

// Whether those of the states that the window has are states that it was saved with.
bool wasSavedSo(const SavedWindow &saved, const MovableWindow &window, const QList<QString> &states)
{
    return saved.states && window.states && std::all_of(states.begin(), states.end(), [&](const QString &state) {
               return !window.states->contains(state) || saved.states->contains(state);
           });
}

// Why a window that is held where it is stays so. One that came with this resume is brought into the state that was
// saved; one that was there before is as the user wants it.
const char *whyHeld(const SavedWindow &saved, const MovableWindow &window, bool wasThere)
{
    if (window.isMinimised && !wasSavedSo(saved, window, {WindowStates::minimised}))
        return reason::minimised;
    if ((saved.states && !wasThere) || wasSavedSo(saved, window, holdingStates))
        return nullptr;
    if (window.isFullScreen)
        return reason::fullScreen;
    return window.isMaximised ? reason::maximised : nullptr;
}

bool isSized(const WindowRect &from, const WindowRect &to)
{
    return std::abs(from.width - to.width) > 1 || std::abs(from.height - to.height) > 1;
}

// Window managers that hold a window allow nothing as long as they do.
bool mayGo(const MovableWindow &window, const WindowMove &move)
{
    if (window.isMaximised || window.isFullScreen)
        return true;
    const bool isResized = isSized(window.frame, move.frame);
    const bool isMoved =
        isResized || std::abs(window.frame.x - move.frame.x) > 1 || std::abs(window.frame.y - move.frame.y) > 1;
    return (!isMoved || window.canMove) && (!isResized || window.canResize);
}

// What remains to be said of a window that is where it can be.
const char *shortfall(const WindowTarget &target)
{
    if (target.isDesktopGone)
        return reason::desktopGone;
    return target.isInUse ? reason::inUse : nullptr;
}

} // namespace

WindowDecision decide(const SavedWindow &saved, const MovableWindow &window, const WindowCircumstances &circumstances,
                      const WindowScene &scene)
{
    const bool wasThere = circumstances.wasThere;
    const WindowTarget target = targetOf(saved, window, !wasThere, scene);
    if (const char *const why = whyHeld(saved, window, wasThere)) {
        const bool isInPlace = target.isReached && !window.isMinimised;
        return isInPlace ? WindowDecision{.isInPlace = true} : WindowDecision{.why = why};
    }
    if (circumstances.isMovedByUser)
        return {.why = reason::movedByUser};
    const bool isRight = target.isReached || (window.isMinimised && wasThere);
    if (isRight && !circumstances.isAwaited)
        return {.isInPlace = !shortfall(target), .why = shortfall(target)};
    if (!target.move || !mayGo(window, *target.move))
        return {.why = reason::notMovable};
    if (circumstances.isUneasy)
        return {.why = reason::notMovable, .isWaiting = true};
    return {.move = target.move, .why = shortfall(target)};
}

} // namespace ardeno::WindowLayout
