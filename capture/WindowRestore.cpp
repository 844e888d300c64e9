// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowRestore.h"

#include "capture/WindowDecision.h"
#include "capture/WindowMatching.h"
#include "capture/WindowPlacement.h"
#include "capture/WindowTracker.h"

#include <QCoroTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;
namespace reason = WindowLayout::reason;
using WindowLayout::WindowDecision;
using WindowLayout::WindowMatch;
using WindowLayout::WindowMatches;

// How often late windows are looked for, and how often the user's hands are.
constexpr std::chrono::milliseconds lookInterval = 100ms;
constexpr std::chrono::milliseconds feelInterval = 50ms;
// Milliseconds in which an application that has just opened a window may still change it by itself.
constexpr qint64 timeToAdjust = 600;
// Milliseconds in which an application that has shown a window may open another one or name the one it has: some show
// a page or a document only afterwards, and titles that never come back are not waited for any longer.
constexpr qint64 timeToName = 2000;
// Milliseconds in which an application that is busy is asked again whether it answers.
constexpr qint64 timeToAnswer = 3000;

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
    QCoro::Task<void> prepare();
    QCoro::Task<void> wait(std::chrono::milliseconds time);
    void collect();
    QCoro::Task<void> place();
    QCoro::Task<void> carryOut(QList<Pending> moved, QList<WindowMove> moves);
    void notePlaced(const Pending &pending, const WindowMove &move);
    void noteLeft(Pending pending, MoveResult result);
    QCoro::Task<void> placeAgain();
    WindowMatch matchOf(const Pending &pending, const QList<MovableWindow> &live, const WindowMatches &matches) const;
    WindowDecision decision(const Pending &pending, const WindowMatch &match) const;
    WindowDecision decision(const Pending &pending, const MovableWindow &window) const;
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
    WindowLayout::WindowScene m_scene;
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
        m_scene.displays.append({display.id, display.usableFrame});
        if (display.isMain)
            m_scene.mainID = display.id;
    }
    m_scene.desktops = m_desktop.windowServer->virtualDesktops();
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
    return WindowPlacement::isInPlace(window.frame, saved, m_scene.displays, m_scene.mainID);
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

// When nothing else is to come, the only window that has come is the one that was opened.
WindowMatch Restore::matchOf(const Pending &pending, const QList<MovableWindow> &live,
                             const WindowMatches &matches) const
{
    const WindowMatch match = matches.value(pending.saved.id);
    if (match.kind == WindowMatch::Kind::One || !pending.isAwaited || isComing(pending))
        return match;
    return m_matching.findLast(pending.saved, live, m_contents.places());
}

WindowDecision Restore::decision(const Pending &pending, const MovableWindow &window) const
{
    const bool mayChange = pending.isAwaited || mayAnswer(pending);
    const WindowLayout::WindowCircumstances circumstances{
        .isAwaited = pending.isAwaited,
        .wasThere = m_matching.wasThere(window.windowID),
        .isMovedByUser = m_sightings.isMovedByUser(window.windowID),
        .isUneasy = mayChange && !m_sightings.isStill(window.windowID, lookInterval.count())};
    return WindowLayout::decide(pending.saved, window, circumstances, m_scene);
}

WindowDecision Restore::decision(const Pending &pending, const WindowMatch &match) const
{
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
    return decision(pending, match.window);
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
    m_sightings.look(live, m_mover.input());
    m_scene.activeWindow = m_mover.input().activeWindow;
    const WindowMatches matches = m_matching.find(live, m_contents.places());
    QList<WindowMove> moves;
    QList<Pending> moved;
    QList<Pending> waiting;
    for (Pending &pending : m_pending) {
        const WindowDecision next = decision(pending, matchOf(pending, live, matches));
        pending.why = next.why;
        if (next.move) {
            moves.append(*next.move);
            moved.append(pending);
        } else if (next.isInPlace) {
            ++m_result.restoredCount;
        } else if (next.isWaiting) {
            waiting.append(pending);
        } else {
            skip(pending.saved, next.why);
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
        if (result == MoveResult::Placed)
            notePlaced(moved[i], moves[i]);
        else
            noteLeft(moved[i], result);
    }
}

void Restore::notePlaced(const Pending &pending, const WindowMove &move)
{
    m_matching.settle(pending.saved.id, move.windowID);
    if (pending.why)
        skip(pending.saved, pending.why);
    else
        ++m_result.restoredCount;
    if (pending.isAwaited)
        m_late.append({move, m_clock.elapsed()});
}

void Restore::noteLeft(Pending pending, MoveResult result)
{
    pending.why = result == MoveResult::NotAnswering ? reason::notAnswering : reason::notMovable;
    if (result == MoveResult::NotAnswering && mayAnswer(pending))
        m_pending.append(pending);
    else
        skip(pending.saved, pending.why);
}

// Applications that remember a place of their own apply it after they have shown the window.
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
        const bool isAway = !WindowPlacement::isNear(window->frame, placed.move.frame);
        if (isPlain && isAway && !m_sightings.isMovedByUser(window->windowID))
            moves.append(placed.move);
    }
    const qint64 now = m_clock.elapsed();
    m_late.removeIf([&](const Placed &placed) { return now - placed.at >= timeToAdjust; });
    if (!moves.isEmpty())
        co_await m_mover.move(moves);
}

// Feels meanwhile what the user's hands do.
QCoro::Task<void> Restore::wait(std::chrono::milliseconds time)
{
    while (time > 0ms) {
        const auto part = std::min(time, feelInterval);
        co_await QCoro::sleepFor(part);
        time -= part;
        m_sightings.feel(m_mover.input());
    }
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
    m_sightings.look(m_mover.windows(), m_mover.input());
    co_await prepare();
    co_await wait(m_request.firstWait);
    if (!isStopped())
        co_await place();
    const qint64 deadline = (m_request.firstWait + m_request.patience).count();
    while (!isStopped() && ((!m_pending.isEmpty() && m_clock.elapsed() < deadline) || !m_late.isEmpty())) {
        co_await wait(lookInterval);
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
