// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowMover.h"

#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Messages.h"
#include "platform/linux/x11/windows/X11Ping.h"
#include "platform/linux/x11/windows/X11Placement.h"
#include "platform/linux/x11/windows/X11Property.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <QCoroTimer>
#include <QElapsedTimer>
#include <QHash>

#include <chrono>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

// Milliseconds in which a window manager carries out a request: the slowest one seen takes 110.
constexpr qint64 timeForRequest = 400;
// A window that is constrained on the way is at its place after the second round at the latest.
constexpr int rounds = 2;

// What may be done with a window.
class StateQuestion final {
public:
    StateQuestion(const X11Connection &connection, xcb_window_t window)
        : m_connection(&connection),
          m_state(connection, window, X11Atom::NetWmState),
          m_actions(connection, window, X11Atom::NetWmAllowedActions)
    {
    }

    void read(MovableWindow &window)
    {
        const QList<quint32> state = m_state.cardinals();
        const auto actions = m_actions.cardinalsIfSet();
        const auto has = [&](X11Atom name) { return state.contains(m_connection->atom(name)); };
        const auto allows = [&](X11Atom name) { return !actions || actions->contains(m_connection->atom(name)); };
        const bool isShaded = has(X11Atom::NetWmStateShaded);
        window.isMinimised = has(X11Atom::NetWmStateHidden) && !isShaded;
        window.isFullScreen = has(X11Atom::NetWmStateFullscreen);
        window.isMaximised = has(X11Atom::NetWmStateMaximizedHorz) || has(X11Atom::NetWmStateMaximizedVert);
        window.canMove = allows(X11Atom::NetWmActionMove) && !isShaded;
        window.canResize = allows(X11Atom::NetWmActionResize) && !isShaded;
    }

private:
    const X11Connection *m_connection;
    X11Property m_state;
    X11Property m_actions;
};

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

// The moves of one call, carried out side by side.
class Moves final {
public:
    Moves(const X11Connection &connection, const QList<WindowMove> &moves) : m_connection(connection)
    {
        for (const WindowMove &move : moves)
            m_placements.push_back(X11Placement::of(connection, move));
        m_results = QList<MoveResult>(moves.size(), MoveResult::Refused);
    }

    QCoro::Task<QList<MoveResult>> run()
    {
        if (isEach(&X11Placement::isReached))
            co_return results();
        const QSet<xcb_window_t> silent = co_await X11Ping::silent(unplaced());
        for (size_t i = 0; i < m_placements.size(); ++i) {
            if (silent.contains(m_placements[i].window()))
                m_results[qsizetype(i)] = MoveResult::NotAnswering;
        }
        for (int round = 0; round < rounds && !isEach(&X11Placement::isReached); ++round) {
            request(requestSize, &X11Placement::isSizeReached);
            co_await wait(&X11Placement::isSizeReached);
            request(requestPosition, &X11Placement::isReached);
            co_await wait(&X11Placement::isReached);
        }
        co_return results();
    }

private:
    using Condition = bool (X11Placement::*)(const WindowRect &) const;

    bool isHung(size_t i) const { return m_results[qsizetype(i)] == MoveResult::NotAnswering; }

    // The frames of the windows now, in the order of the placements; absent where the window has gone.
    QList<std::optional<WindowRect>> frames() const
    {
        QList<xcb_window_t> windows;
        for (const X11Placement &placement : m_placements)
            windows.append(placement.window());
        QList<std::optional<WindowRect>> frames;
        for (const X11WindowFacts &facts : readWindowFacts(m_connection, windows))
            frames.append(facts.frame);
        return frames;
    }

    // Whether it holds for each window that is there and answers.
    bool isEach(Condition condition) const
    {
        const auto current = frames();
        for (size_t i = 0; i < m_placements.size(); ++i) {
            const auto &frame = current[qsizetype(i)];
            if (frame && !isHung(i) && !(m_placements[i].*condition)(*frame))
                return false;
        }
        return true;
    }

    QList<xcb_window_t> unplaced() const
    {
        const auto current = frames();
        QList<xcb_window_t> windows;
        for (size_t i = 0; i < m_placements.size(); ++i) {
            const auto &frame = current[qsizetype(i)];
            if (frame && !m_placements[i].isReached(*frame))
                windows.append(m_placements[i].window());
        }
        return windows;
    }

    void request(void (*send)(const X11Connection &, const X11Placement &), Condition unless) const
    {
        const auto current = frames();
        for (size_t i = 0; i < m_placements.size(); ++i) {
            const auto &frame = current[qsizetype(i)];
            if (frame && !isHung(i) && !(m_placements[i].*unless)(*frame))
                send(m_connection, m_placements[i]);
        }
    }

    QCoro::Task<void> wait(Condition condition) const
    {
        QElapsedTimer clock;
        clock.start();
        while (!isEach(condition) && clock.elapsed() < timeForRequest)
            co_await QCoro::sleepFor(5ms);
    }

    QList<MoveResult> results() const
    {
        const auto current = frames();
        QList<MoveResult> results = m_results;
        for (size_t i = 0; i < m_placements.size(); ++i) {
            const auto &frame = current[qsizetype(i)];
            if (frame && m_placements[i].isReached(*frame))
                results[qsizetype(i)] = MoveResult::Placed;
        }
        return results;
    }

    const X11Connection &m_connection;
    std::vector<X11Placement> m_placements;
    QList<MoveResult> m_results;
};

} // namespace

X11WindowMover::X11WindowMover(std::shared_ptr<X11Connection> connection, std::shared_ptr<DesktopEntries> entries)
    : m_connection(std::move(connection)), m_entries(std::move(entries))
{
}

Capability X11WindowMover::availability() const
{
    if (const Capability lost = m_connection->availability(); !lost.isAvailable())
        return lost;
    const QList<quint32> supported =
        X11Property(*m_connection, m_connection->root(), X11Atom::NetSupported).cardinals();
    if (!WindowTree::hasManager(*m_connection))
        return Capability::unavailable("There is no window manager that could move windows.");
    if (!supported.contains(m_connection->atom(X11Atom::NetMoveResizeWindow)))
        return Capability::unavailable("The window manager does not move windows for other programs.");
    return Capability::available();
}

QList<MovableWindow> X11WindowMover::windows()
{
    const QList<xcb_window_t> clients = WindowTree::clients(*m_connection);
    const QHash<xcb_window_t, WindowOwner> owners = WindowOwners(*m_connection, *m_entries).owners(clients);
    std::vector<StateQuestion> questions;
    questions.reserve(clients.size());
    for (const xcb_window_t client : clients)
        questions.emplace_back(*m_connection, client);
    const QList<X11WindowFacts> facts = readWindowFacts(*m_connection, clients);
    QList<MovableWindow> windows;
    for (qsizetype i = 0; i < facts.size(); ++i) {
        MovableWindow window{.windowID = facts[i].window,
                             .applicationID = owners.value(facts[i].window).applicationID.value_or(QString()),
                             .title = facts[i].title,
                             .frame = facts[i].frame.value_or(WindowRect())};
        questions[size_t(i)].read(window);
        if (facts[i].frame && facts[i].isOrdinary && !facts[i].isDialog)
            windows.append(window);
    }
    return windows;
}

QCoro::Task<QList<MoveResult>> X11WindowMover::move(QList<WindowMove> moves)
{
    Moves all(*m_connection, moves);
    co_return co_await all.run();
}

} // namespace ardeno
