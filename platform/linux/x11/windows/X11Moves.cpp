// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Moves.h"

#include "platform/linux/x11/windows/X11Messages.h"
#include "platform/linux/x11/windows/X11Ping.h"
#include "platform/linux/x11/windows/X11WindowStates.h"

#include <QCoroTimer>
#include <QElapsedTimer>

#include <array>
#include <chrono>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

// Milliseconds in which a window manager carries out a request: the slowest one seen takes 110.
constexpr qint64 timeForRequest = 400;

void requestSize(const X11Connection &connection, const X11Placement &placement)
{
    // The north-west gravity, width and height given, on behalf of a pager.
    constexpr quint32 flags = XCB_GRAVITY_NORTH_WEST | (1U << 10) | (1U << 11) | (2U << 12);
    X11Messages::toManager(connection, placement.window(), X11Atom::NetMoveResizeWindow,
                           {flags, 0, 0, placement.width(), placement.height()});
}

void requestPosition(const X11Connection &connection, const X11Placement &placement)
{
    constexpr quint32 flags = XCB_GRAVITY_NORTH_WEST | (1U << 8) | (1U << 9) | (2U << 12);
    X11Messages::toManager(connection, placement.window(), X11Atom::NetMoveResizeWindow,
                           {flags, static_cast<quint32>(placement.x()), static_cast<quint32>(placement.y()), 0, 0});
}

// Window managers hold on to where such a window is.
bool isHeld(const QList<QString> &states)
{
    return states.contains(WindowStates::fullScreen) || states.contains(WindowStates::maximisedAcross) ||
           states.contains(WindowStates::maximisedDown);
}

// The words of the first that the second lacks and a window manager can be asked for.
QList<QString> missingIn(QList<QString> words, const QList<QString> &others)
{
    words.removeIf([&](const QString &word) { return others.contains(word) || !X11WindowStates::isRequestable(word); });
    return words;
}

QList<QString> statesOf(const X11WindowFacts &facts)
{
    return facts.states.value_or(QList<QString>());
}

} // namespace

X11Moves::X11Moves(const X11Connection &connection, const QList<WindowMove> &moves)
    : m_connection(connection), m_moves(moves)
{
    measure();
}

// A window that is no longer maximised has other borders, and one that has just come may have none yet.
void X11Moves::measure()
{
    m_placements.clear();
    for (const WindowMove &move : m_moves)
        m_placements.push_back(X11Placement::of(m_connection, move));
}

QList<X11WindowFacts> X11Moves::facts() const
{
    QList<xcb_window_t> windows;
    for (const WindowMove &move : m_moves)
        windows.append(move.windowID);
    return readWindowFacts(m_connection, windows);
}

// What holds a window where it is and shall not.
X11Moves::Step X11Moves::plainStep() const
{
    const auto surplus = [this](size_t i, const X11WindowFacts &facts) {
        const auto &states = m_moves[qsizetype(i)].states;
        return states ? missingIn(statesOf(facts), *states) : QList<QString>();
    };
    return {[surplus](size_t i, const X11WindowFacts &facts) { return surplus(i, facts).isEmpty(); },
            [this, surplus](size_t i, const X11WindowFacts &facts) {
                X11WindowStates::request(m_connection, facts.window, surplus(i, facts), false);
            }};
}

// As it shall be; it has been taken out of anything else before.
bool X11Moves::isAlreadyHeld(size_t i, const X11WindowFacts &facts) const
{
    return m_moves[qsizetype(i)].states && isHeld(statesOf(facts));
}

X11Moves::Step X11Moves::sizeStep() const
{
    return {[this](size_t i, const X11WindowFacts &facts) {
                return isAlreadyHeld(i, facts) || m_placements[i].isSizeReached(*facts.frame);
            },
            [this](size_t i, const X11WindowFacts &) { requestSize(m_connection, m_placements[i]); }};
}

X11Moves::Step X11Moves::positionStep() const
{
    return {[this](size_t i, const X11WindowFacts &facts) {
                return isAlreadyHeld(i, facts) || m_placements[i].isReached(*facts.frame);
            },
            [this](size_t i, const X11WindowFacts &) { requestPosition(m_connection, m_placements[i]); }};
}

X11Moves::Step X11Moves::statesStep() const
{
    const auto missing = [this](size_t i, const X11WindowFacts &facts) {
        return missingIn(m_moves[qsizetype(i)].states.value_or(QList<QString>()), statesOf(facts));
    };
    return {[missing](size_t i, const X11WindowFacts &facts) { return missing(i, facts).isEmpty(); },
            [this, missing](size_t i, const X11WindowFacts &facts) {
                X11WindowStates::request(m_connection, facts.window, missing(i, facts), true);
            }};
}

X11Moves::Step X11Moves::desktopStep() const
{
    const auto wanted = [this](size_t i) {
        const WindowMove &move = m_moves[qsizetype(i)];
        const bool isOnAll = move.states && move.states->contains(WindowStates::onAllDesktops);
        return isOnAll ? std::optional(X11WindowStates::allDesktops) : move.desktop;
    };
    return {[wanted](size_t i, const X11WindowFacts &facts) {
                const auto desktop = wanted(i);
                const bool isOnAll = statesOf(facts).contains(WindowStates::onAllDesktops);
                return !desktop || (*desktop == X11WindowStates::allDesktops ? isOnAll : facts.desktop == desktop);
            },
            [this, wanted](size_t i, const X11WindowFacts &facts) {
                X11WindowStates::requestDesktop(m_connection, facts.window, wanted(i).value_or(0));
            }};
}

X11Moves::Step X11Moves::minimisedStep() const
{
    return {
        [this](size_t i, const X11WindowFacts &facts) {
            const auto &states = m_moves[qsizetype(i)].states;
            return !states || !states->contains(WindowStates::minimised) ||
                   statesOf(facts).contains(WindowStates::minimised);
        },
        [this](size_t, const X11WindowFacts &facts) { X11WindowStates::requestMinimised(m_connection, facts.window); }};
}

// Whether it holds for each window that is there and answers.
bool X11Moves::isDone(const Step &step) const
{
    const QList<X11WindowFacts> current = facts();
    for (size_t i = 0; i < m_placements.size(); ++i) {
        const X11WindowFacts &window = current[qsizetype(i)];
        if (window.frame && !m_silent.contains(window.window) && !step.isDone(i, window))
            return false;
    }
    return true;
}

QCoro::Task<void> X11Moves::take(Step step) const
{
    const QList<X11WindowFacts> current = facts();
    for (size_t i = 0; i < m_placements.size(); ++i) {
        const X11WindowFacts &window = current[qsizetype(i)];
        if (window.frame && !m_silent.contains(window.window) && !step.isDone(i, window))
            step.ask(i, window);
    }
    QElapsedTimer clock;
    clock.start();
    while (!isDone(step) && clock.elapsed() < timeForRequest)
        co_await QCoro::sleepFor(5ms);
}

// A window that is constrained on the way is at its place after the second round at the latest. Only of those that did
// not go is asked whether they answer.
QCoro::Task<void> X11Moves::place()
{
    const Step size = sizeStep();
    const Step position = positionStep();
    measure();
    co_await take(size);
    co_await take(position);
    if (isDone(position))
        co_return;
    QList<xcb_window_t> left;
    const QList<X11WindowFacts> current = facts();
    for (size_t i = 0; i < m_placements.size(); ++i) {
        if (current[qsizetype(i)].frame && !position.isDone(i, current[qsizetype(i)]))
            left.append(current[qsizetype(i)].window);
    }
    m_silent = co_await X11Ping::silent(left);
    measure();
    co_await take(size);
    co_await take(position);
}

// Looked at before windows are minimised, which some window managers show as a flight across the screen.
void X11Moves::rememberPlaces()
{
    const QList<X11WindowFacts> current = facts();
    for (size_t i = 0; i < m_placements.size(); ++i) {
        const X11WindowFacts &window = current[qsizetype(i)];
        const auto &states = m_moves[qsizetype(i)].states;
        if (window.frame && ((states && isHeld(*states)) || m_placements[i].isReached(*window.frame)))
            m_wasThere.insert(window.window);
    }
}

bool X11Moves::isPlaced(size_t i, const X11WindowFacts &facts) const
{
    if (!facts.frame)
        return false;
    return m_wasThere.contains(facts.window) && plainStep().isDone(i, facts) && statesStep().isDone(i, facts) &&
           desktopStep().isDone(i, facts) && minimisedStep().isDone(i, facts);
}

QCoro::Task<QList<MoveResult>> X11Moves::run()
{
    const Step plain = plainStep();
    co_await take(plain);
    co_await place();
    rememberPlaces();
    // Some window managers do not minimise what is on another desktop.
    const std::array<Step, 3> last = {statesStep(), minimisedStep(), desktopStep()};
    for (const Step &step : last)
        co_await take(step);
    QList<MoveResult> results;
    const QList<X11WindowFacts> current = facts();
    for (size_t i = 0; i < m_placements.size(); ++i) {
        const X11WindowFacts &window = current[qsizetype(i)];
        const auto otherwise = m_silent.contains(window.window) ? MoveResult::NotAnswering : MoveResult::Refused;
        results.append(isPlaced(i, window) ? MoveResult::Placed : otherwise);
    }
    co_return results;
}

} // namespace ardeno
