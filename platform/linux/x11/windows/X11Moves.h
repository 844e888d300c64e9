// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/WindowMover.h"
#include "platform/linux/x11/windows/X11Placement.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <QCoroTask>
#include <QSet>

#include <functional>
#include <vector>

namespace ardeno {

// The moves of one call, carried out side by side: each step is asked for and waited for, unless it is done already.
class X11Moves final {
public:
    X11Moves(const X11Connection &connection, const QList<WindowMove> &moves);

    QCoro::Task<QList<MoveResult>> run();

private:
    struct Step {
        std::function<bool(size_t, const X11WindowFacts &)> isDone;
        std::function<void(size_t, const X11WindowFacts &)> ask;
    };

    void measure();
    QList<X11WindowFacts> facts() const;
    QCoro::Task<void> take(Step step) const;
    bool isDone(const Step &step) const;
    QCoro::Task<void> place();
    Step plainStep() const;
    Step sizeStep() const;
    Step positionStep() const;
    Step statesStep() const;
    Step desktopStep() const;
    Step minimisedStep() const;
    void rememberPlaces();
    bool isAlreadyHeld(size_t i, const X11WindowFacts &facts) const;
    bool isPlaced(size_t i, const X11WindowFacts &facts) const;

    const X11Connection &m_connection;
    QList<WindowMove> m_moves;
    std::vector<X11Placement> m_placements;
    QSet<xcb_window_t> m_silent;   // Those of applications that do not answer.
    QSet<xcb_window_t> m_wasThere; // Those that went to their places, or will fill the screen.
};

} // namespace ardeno
