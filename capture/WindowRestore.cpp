// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowRestore.h"

#include "capture/WindowMatching.h"
#include "capture/WindowPlacement.h"
#include "capture/WindowTracker.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;
using WindowLayout::DisplayEntry;
using WindowLayout::WindowMatch;

namespace reason {

constexpr auto noSuchWindow = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "no such window");
constexpr auto elsewhere = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "shown in another window");
constexpr auto several = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "several with that title");
constexpr auto minimised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "minimised");
constexpr auto fullScreen = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "full screen");
constexpr auto maximised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "maximised");
constexpr auto notMovable = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "not movable");
constexpr auto notAnswering = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "application did not answer");
constexpr auto movedByUser = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "moved by you");
constexpr auto stopped = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "stopped by you");

} // namespace reason

// How often late windows are looked for.
constexpr std::chrono::milliseconds lookInterval = 100ms;
// Milliseconds in which an application that has just opened a window may still change it by itself.
constexpr qint64 timeToAdjust = 600;
// Milliseconds in which an application that has shown a window may open another one or name the one it has: some show
// a page or a document only afterwards, and titles that never come back are not waited for any longer.
constexpr qint64 timeToName = 2000;
// Milliseconds in which an application that is busy is asked again whether it answers.
constexpr qint64 timeToAnswer = 3000;

bool isAt(const WindowRect &frame, const WindowRect &place)
{
    return std::abs(frame.x - place.x) <= 1 && std::abs(frame.y - place.y) <= 1;
}

bool isResized(const WindowRect &from, const WindowRect &to)
{
    return std::abs(from.width - to.width) > 1 || std::abs(from.height - to.height) > 1;
}

// A saved window on its way back.
struct Pending {
    SavedWindow saved = {};
    bool isAwaited = false;    // This resume caused it to be opened.
    const char *why = nullptr; // It has not been placed yet.
};

// A late window that was placed; its application may still change its size.
struct Placed {
    WindowMove move = {};
    qint64 at = 0;
};

// One restore from beginning to end.
class Restore final {
public:
    Restore(WindowLayout::RestoreRequest request, Desktop &desktop)
        : m_request(std::move(request)),
          m_desktop(desktop),
          m_mover(*desktop.windowMover),
          m_matching({}, {}),
          m_contents(desktop)
    {
    }

    QCoro::Task<RestoreResult> run();

private:
    struct Decision {
        std::optional<WindowMove> move = {};
        bool isInPlace = false;    // It needs no move.
        const char *why = nullptr; // It cannot be moved now.
        bool isWaiting = false;    // But may be later.
    };

    QCoro::Task<void> prepare();
    void collect();
    QCoro::Task<void> place();
    QCoro::Task<void> carryOut(QList<Pending> moved, QList<WindowMove> moves);
    QCoro::Task<void> placeAgain();
    Decision decide(const Pending &pending, const QList<MovableWindow> &live) const;
    Decision decide(const Pending &pending, const MovableWindow &window) const;
    Decision decideMove(const Pending &pending, const MovableWindow &window, bool isRight) const;
    bool isInPlace(const SavedWindow &saved, const MovableWindow &window) const;
    bool isComing(const Pending &pending) const;
    bool mayAnswer(const Pending &pending) const;
    QList<SavedWindow> awaited() const;
    void skip(const SavedWindow &saved, const QString &why);
    void skipRest();
    bool isStopped() const;

    WindowLayout::RestoreRequest m_request;
    Desktop &m_desktop;
    WindowMover &m_mover;
    QElapsedTimer m_clock;
    QList<DisplayEntry> m_displays;
    quint32 m_mainID = 0;
    QList<Pending> m_pending;
    QList<Placed> m_late;
    WindowLayout::WindowMatching m_matching;
    WindowLayout::WindowContents m_contents;
    WindowLayout::WindowTracker m_sightings;
    RestoreResult m_result;
};

void Restore::skip(const SavedWindow &saved, const QString &why)
{
    m_result.skipped.append({saved.appID, saved.title, why});
    m_result.skippedCount = m_result.skipped.size();
}

// What was still waited for, or what nobody waits for any longer.
void Restore::skipRest()
{
    for (const Pending &pending : std::as_const(m_pending))
        skip(pending.saved, m_request.control.isStopped() ? reason::stopped : pending.why);
}

// Tells which window is waited for, unless its user has stopped the resume.
bool Restore::isStopped() const
{
    if (!m_pending.isEmpty())
        m_request.control.awaits(m_pending.first().saved.appName);
    return m_request.control.isStopped();
}

void Restore::collect()
{
    for (const Display &display : m_desktop.windowServer->displays()) {
        m_displays.append({display.id, display.usableFrame});
        if (display.isMain)
            m_mainID = display.id;
    }
    for (const SavedWindow &window : std::as_const(m_request.windows)) {
        const bool isWanted = m_request.onlyIDs.isEmpty() || m_request.onlyIDs.contains(window.id);
        if (isWanted && m_request.allowedAppIDs.contains(window.appID))
            m_pending.append({.saved = window, .isAwaited = m_request.awaitedIDs.contains(window.id)});
    }
}

// Finds out which windows are the saved ones already.
QCoro::Task<void> Restore::prepare()
{
    if (!m_request.before) {
        m_request.places = co_await WindowLayout::savedPlaces(m_request.windows, m_desktop);
        m_request.before = co_await WindowLayout::openPlaces(m_request.windows, m_request.places, m_desktop);
    }
    const WindowLayout::OpenPlaces &before = *m_request.before;
    m_matching = WindowLayout::WindowMatching(m_request.windows, m_request.places);
    m_contents.setPlaces(before.placesOfWindows);
    m_matching.settle(
        before.windows, before.placesOfWindows,
        [this](const SavedWindow &saved, const MovableWindow &window) { return isInPlace(saved, window); });
}

bool Restore::isInPlace(const SavedWindow &saved, const MovableWindow &window) const
{
    return WindowPlacement::isInPlace(window.frame, saved, m_displays, m_mainID);
}

bool Restore::isComing(const Pending &pending) const
{
    const QString &appID = pending.saved.appID;
    return pending.isAwaited &&
           (!m_request.isStarting || m_request.isStarting(appID) || m_sightings.timeSinceNews(appID) < timeToName);
}

// An application that is busy may answer later; one that was just opened has as long as its window may take to come.
bool Restore::mayAnswer(const Pending &pending) const
{
    return pending.isAwaited || m_clock.elapsed() < m_request.firstWait.count() + timeToAnswer;
}

Restore::Decision Restore::decide(const Pending &pending, const MovableWindow &window) const
{
    const bool isRight = isInPlace(pending.saved, window);
    if (window.isMinimised)
        return {.why = reason::minimised};
    if (window.isFullScreen || window.isMaximised) {
        const auto *const why = window.isFullScreen ? reason::fullScreen : reason::maximised;
        return isRight ? Decision{.isInPlace = true} : Decision{.why = why};
    }
    if (m_sightings.isMovedByUser(window.windowID))
        return {.why = reason::movedByUser};
    if (isRight && !pending.isAwaited)
        return {.isInPlace = true};
    return decideMove(pending, window, isRight);
}

Restore::Decision Restore::decideMove(const Pending &pending, const MovableWindow &window, bool isRight) const
{
    const auto frame = isRight ? window.frame : WindowPlacement::fit(pending.saved, m_displays, m_mainID);
    if (!frame || !window.canMove || (!window.canResize && isResized(window.frame, *frame)))
        return {.why = reason::notMovable};
    if (pending.isAwaited && !m_sightings.isStill(window.windowID, lookInterval.count()))
        return {.why = reason::noSuchWindow, .isWaiting = true};
    return {.move = WindowMove{window.windowID, *frame}};
}

Restore::Decision Restore::decide(const Pending &pending, const QList<MovableWindow> &live) const
{
    const WindowMatch match = m_matching.find(pending.saved, live, m_contents.places());
    const bool hasPlace = !WindowLayout::savedPath(pending.saved).isEmpty();
    switch (match.kind) {
    case WindowMatch::Kind::None:
        return {.why = reason::noSuchWindow, .isWaiting = isComing(pending)};
    case WindowMatch::Kind::Elsewhere:
        return {.why = reason::elsewhere, .isWaiting = isComing(pending)};
    case WindowMatch::Kind::Several:
        return {.why = reason::several, .isWaiting = hasPlace && isComing(pending)};
    case WindowMatch::Kind::One:
        break;
    }
    // What was opened is sooner in a window that is to come than in one that was there and only has its title.
    if (hasPlace && m_matching.isStranger(match.window.windowID) && isComing(pending))
        return {.why = reason::noSuchWindow, .isWaiting = true};
    return decide(pending, match.window);
}

QList<SavedWindow> Restore::awaited() const
{
    QList<SavedWindow> windows;
    for (const Pending &pending : m_pending) {
        if (pending.isAwaited)
            windows.append(pending.saved);
    }
    return windows;
}

// Places what can be placed now and keeps what is waited for.
QCoro::Task<void> Restore::place()
{
    co_await m_contents.update(m_mover.windows(), awaited());
    const QList<MovableWindow> live = m_mover.windows();
    m_sightings.look(live);
    QList<WindowMove> moves;
    QList<Pending> moved;
    QList<Pending> waiting;
    for (Pending &pending : m_pending) {
        const Decision decision = decide(pending, live);
        pending.why = decision.why;
        if (decision.move) {
            moves.append(*decision.move);
            moved.append(pending);
        } else if (decision.isInPlace) {
            ++m_result.restoredCount;
        } else if (decision.isWaiting) {
            waiting.append(pending);
        } else {
            skip(pending.saved, decision.why);
        }
    }
    m_pending = waiting;
    if (!moves.isEmpty())
        co_await carryOut(moved, moves);
}

QCoro::Task<void> Restore::carryOut(QList<Pending> moved, QList<WindowMove> moves)
{
    const QList<MoveResult> results = co_await m_mover.move(moves);
    for (qsizetype i = 0; i < moves.size(); ++i) {
        const MoveResult result = results.value(i, MoveResult::Refused);
        Pending &pending = moved[i];
        pending.why = result == MoveResult::NotAnswering ? reason::notAnswering : reason::notMovable;
        if (result == MoveResult::Placed)
            ++m_result.restoredCount;
        else if (result == MoveResult::NotAnswering && mayAnswer(pending))
            m_pending.append(pending);
        else
            skip(pending.saved, pending.why);
        if (pending.isAwaited && result == MoveResult::Placed)
            m_late.append({moves[i], m_clock.elapsed()});
    }
}

// Applications that remember a size of their own apply it after they have shown the window. One that stands elsewhere
// was moved by the user.
QCoro::Task<void> Restore::placeAgain()
{
    QList<WindowMove> moves;
    const QList<MovableWindow> live = m_mover.windows();
    for (const Placed &placed : std::as_const(m_late)) {
        const auto same = [&](const MovableWindow &window) { return window.windowID == placed.move.windowID; };
        const auto window = std::find_if(live.begin(), live.end(), same);
        if (window == live.end() || m_clock.elapsed() - placed.at < timeToAdjust)
            continue;
        const bool isPlain = !window->isMaximised && !window->isFullScreen && !window->isMinimised;
        if (isPlain && isAt(window->frame, placed.move.frame) && isResized(window->frame, placed.move.frame))
            moves.append(placed.move);
    }
    const qint64 now = m_clock.elapsed();
    m_late.removeIf([&](const Placed &placed) { return now - placed.at >= timeToAdjust; });
    if (!moves.isEmpty())
        co_await m_mover.move(moves);
}

QCoro::Task<RestoreResult> Restore::run()
{
    collect();
    const Capability capability = m_mover.availability();
    if (capability.state == Capability::State::NeedsConsent) {
        m_result.accessibilityRequired = true;
        co_return m_result;
    }
    if (!capability.isAvailable()) {
        for (const Pending &pending : std::as_const(m_pending))
            skip(pending.saved, capability.reason);
        co_return m_result;
    }
    m_clock.start();
    m_sightings.look(m_mover.windows());
    co_await prepare();
    co_await QCoro::sleepFor(m_request.firstWait);
    if (!isStopped())
        co_await place();
    const qint64 deadline = (m_request.firstWait + m_request.patience).count();
    while (!isStopped() && ((!m_pending.isEmpty() && m_clock.elapsed() < deadline) || !m_late.isEmpty())) {
        co_await QCoro::sleepFor(lookInterval);
        co_await place();
        co_await placeAgain();
    }
    skipRest();
    co_return m_result;
}

} // namespace

QCoro::Task<RestoreResult> WindowLayout::restore(RestoreRequest request, Desktop &desktop)
{
    Restore restore(std::move(request), desktop);
    co_return co_await restore.run();
}

} // namespace ardeno
