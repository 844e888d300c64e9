// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowRestore.h"

#include "capture/WindowPlacement.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

namespace ardeno {

namespace {

using namespace std::chrono_literals;
using WindowLayout::DisplayEntry;

namespace reason {

constexpr auto noSuchWindow = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "no such window");
constexpr auto several = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "several with that title");
constexpr auto minimised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "minimised");
constexpr auto fullScreen = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "full screen");
constexpr auto maximised = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "maximised");
constexpr auto notMovable = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "not movable");
constexpr auto notAnswering = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "application did not answer");
constexpr auto movedByUser = QT_TRANSLATE_NOOP("ardeno::WindowRestore", "moved by you");

} // namespace reason

// How often late windows are looked for.
constexpr std::chrono::milliseconds lookInterval = 100ms;
// Milliseconds after which a window's place is its own no more: whoever moves it then is the user.
constexpr qint64 timeToSettle = 400;
// Milliseconds in which an application that has just opened a window may still change it by itself.
constexpr qint64 timeToAdjust = 600;
// Milliseconds in which an application that has shown a window may open another one or name the one it has: some show
// a page or a document only afterwards, and titles that never come back are not waited for any longer.
constexpr qint64 timeToName = 2000;

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
    qsizetype groupSize = 0;  // How many windows of its application were saved.
    bool isAmbiguous = false; // Another saved window has its title.
    bool isAwaited = false;   // This resume caused it to be opened.
};

// Where a live window was seen, and since when it has been there.
struct Sighting {
    QString title = {};
    WindowRect frame = {};
    qint64 since = 0; // Milliseconds of the restore's clock.
    bool isMovedByUser = false;
};

// A late window that was placed; its application may still change its size.
struct Placed {
    WindowMove move = {};
    qint64 at = 0;
};

// One restore from beginning to end.
class Restore final {
public:
    Restore(WindowLayout::RestoreRequest request, WindowMover &mover, WindowServer &server)
        : m_request(std::move(request)), m_mover(mover), m_server(server)
    {
        m_clock.start();
    }

    QCoro::Task<RestoreResult> run();

private:
    struct Decision {
        std::optional<WindowMove> move = {};
        const char *skip = nullptr; // Neither: the window is waited for.
    };

    void collect();
    void look(const QList<MovableWindow> &live);
    QCoro::Task<void> place();
    QCoro::Task<void> placeAgain();
    Decision decide(const Pending &pending, const QList<MovableWindow> &live) const;
    Decision decide(const Pending &pending, const MovableWindow &window) const;
    bool isStill(const MovableWindow &window) const;
    bool isComing(const Pending &pending) const;
    void skip(const SavedWindow &saved, const QString &why);
    void finish(const SavedWindow &saved, MoveResult result);

    WindowLayout::RestoreRequest m_request;
    WindowMover &m_mover;
    WindowServer &m_server;
    QElapsedTimer m_clock;
    QList<DisplayEntry> m_displays;
    quint32 m_mainID = 0;
    QList<Pending> m_pending;
    QList<Placed> m_late;
    QHash<quint32, Sighting> m_sightings;
    QHash<QString, qint64> m_news; // When an application last showed a window or changed a title.
    RestoreResult m_result;
};

void Restore::skip(const SavedWindow &saved, const QString &why)
{
    m_result.skipped.append({saved.appID, saved.title, why});
    m_result.skippedCount = m_result.skipped.size();
}

void Restore::finish(const SavedWindow &saved, MoveResult result)
{
    if (result == MoveResult::Placed)
        ++m_result.restoredCount;
    else
        skip(saved, result == MoveResult::NotAnswering ? reason::notAnswering : reason::notMovable);
}

void Restore::collect()
{
    for (const Display &display : m_server.displays()) {
        m_displays.append({display.id, display.usableFrame});
        if (display.isMain)
            m_mainID = display.id;
    }
    QHash<QString, qsizetype> groupSizes;
    QHash<std::pair<QString, QString>, qsizetype> titles;
    for (const SavedWindow &window : std::as_const(m_request.windows)) {
        ++groupSizes[window.appID];
        ++titles[{window.appID, window.title}];
    }
    for (const SavedWindow &window : std::as_const(m_request.windows)) {
        const bool isWanted = m_request.onlyIDs.isEmpty() || m_request.onlyIDs.contains(window.id);
        if (!isWanted || !m_request.allowedAppIDs.contains(window.appID))
            continue;
        m_pending.append({.saved = window,
                          .groupSize = groupSizes.value(window.appID),
                          .isAmbiguous = titles.value({window.appID, window.title}) > 1,
                          .isAwaited = m_request.awaitedIDs.contains(window.id)});
    }
}

// Notices who moves windows: once a window has stood still, that is the user.
void Restore::look(const QList<MovableWindow> &live)
{
    const qint64 now = m_clock.elapsed();
    for (const MovableWindow &window : live) {
        const auto known = m_sightings.find(window.windowID);
        if (known == m_sightings.end()) {
            m_sightings.insert(window.windowID, {window.title, window.frame, now, false});
            m_news.insert(window.applicationID, now);
            continue;
        }
        if (known->title != window.title)
            m_news.insert(window.applicationID, now);
        known->title = window.title;
        if (known->frame == window.frame)
            continue;
        const bool isMoved = known->frame.x != window.frame.x || known->frame.y != window.frame.y;
        known->isMovedByUser = known->isMovedByUser || (isMoved && now - known->since >= timeToSettle);
        known->frame = window.frame;
        known->since = now;
    }
}

bool Restore::isStill(const MovableWindow &window) const
{
    return m_clock.elapsed() - m_sightings.value(window.windowID).since >= lookInterval.count();
}

bool Restore::isComing(const Pending &pending) const
{
    const QString &appID = pending.saved.appID;
    return pending.isAwaited && (!m_request.isStarting || m_request.isStarting(appID) ||
                                 m_clock.elapsed() - m_news.value(appID) < timeToName);
}

Restore::Decision Restore::decide(const Pending &pending, const MovableWindow &window) const
{
    const Sighting sighting = m_sightings.value(window.windowID);
    if (window.isMinimised)
        return {.skip = reason::minimised};
    if (window.isFullScreen)
        return {.skip = reason::fullScreen};
    if (window.isMaximised)
        return {.skip = reason::maximised};
    if (sighting.isMovedByUser)
        return {.skip = reason::movedByUser};
    const auto frame = WindowPlacement::fit(pending.saved, m_displays, m_mainID);
    if (!frame || !window.canMove || (!window.canResize && isResized(window.frame, *frame)))
        return {.skip = reason::notMovable};
    if (pending.isAwaited && !isStill(window))
        return {};
    return {.move = WindowMove{window.windowID, *frame}};
}

Restore::Decision Restore::decide(const Pending &pending, const QList<MovableWindow> &live) const
{
    QList<MovableWindow> own = live;
    own.removeIf([&](const MovableWindow &window) { return window.applicationID != pending.saved.appID; });
    QStringList titles;
    for (const MovableWindow &window : std::as_const(own))
        titles += window.title;
    const bool isUntitled = pending.saved.title.isEmpty();
    const bool isThere = isUntitled ? !titles.isEmpty() : titles.contains(pending.saved.title);
    if (!isThere)
        return {.skip = isComing(pending) ? nullptr : reason::noSuchWindow};
    const auto index = WindowPlacement::matchIndex(pending.saved.title, titles, pending.groupSize);
    if (!index || pending.isAmbiguous)
        return {.skip = reason::several};
    return decide(pending, own[*index]);
}

// Places what can be placed now and keeps what is waited for.
QCoro::Task<void> Restore::place()
{
    const QList<MovableWindow> live = m_mover.windows();
    look(live);
    QList<WindowMove> moves;
    QList<Pending> moved;
    QList<Pending> awaited;
    for (const Pending &pending : std::as_const(m_pending)) {
        const Decision decision = decide(pending, live);
        if (decision.move) {
            moves.append(*decision.move);
            moved.append(pending);
        } else if (decision.skip) {
            skip(pending.saved, decision.skip);
        } else {
            awaited.append(pending);
        }
    }
    m_pending = awaited;
    if (moves.isEmpty())
        co_return;
    const QList<MoveResult> results = co_await m_mover.move(moves);
    for (qsizetype i = 0; i < moves.size(); ++i) {
        finish(moved[i].saved, results.value(i, MoveResult::Refused));
        if (moved[i].isAwaited && results.value(i) == MoveResult::Placed)
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
    look(m_mover.windows());
    co_await QCoro::sleepFor(m_request.firstWait);
    co_await place();
    const qint64 deadline = (m_request.firstWait + m_request.patience).count();
    while ((!m_pending.isEmpty() && m_clock.elapsed() < deadline) || !m_late.isEmpty()) {
        co_await QCoro::sleepFor(lookInterval);
        co_await place();
        co_await placeAgain();
    }
    for (const Pending &pending : std::as_const(m_pending))
        skip(pending.saved, reason::noSuchWindow);
    co_return m_result;
}

} // namespace

QCoro::Task<RestoreResult> WindowLayout::restore(RestoreRequest request, WindowMover &mover, WindowServer &server)
{
    Restore restore(std::move(request), mover, server);
    co_return co_await restore.run();
}

} // namespace ardeno
