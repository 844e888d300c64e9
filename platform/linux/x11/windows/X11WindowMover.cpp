// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowMover.h"

#include "platform/linux/x11/windows/WindowOwners.h"
#include "platform/linux/x11/windows/WindowTree.h"
#include "platform/linux/x11/windows/X11Moves.h"
#include "platform/linux/x11/windows/X11Property.h"
#include "platform/linux/x11/windows/X11WindowStates.h"
#include "platform/linux/x11/windows/X11Windows.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

// A window that is not seen may be asked to move all the same: some window managers allow nothing as long as it is
// hidden, and then carry it out.
struct AllowedActions {
    AllowedActions(const X11Connection &connection, xcb_window_t window)
        : actions(connection, window, X11Atom::NetWmAllowedActions)
    {
    }

    void read(const X11Connection &connection, const X11WindowFacts &facts, MovableWindow *window)
    {
        const auto allowed = actions.cardinalsIfSet();
        const auto allows = [&](X11Atom name) {
            return !facts.isShaded && (!facts.isOnScreen || !allowed || allowed->contains(connection.atom(name)));
        };
        window->canMove = allows(X11Atom::NetWmActionMove);
        window->canResize = allows(X11Atom::NetWmActionResize);
    }

    X11Property actions;
};

MovableWindow movable(const X11WindowFacts &facts, const WindowOwner &owner)
{
    const QList<QString> states = facts.states.value_or(QList<QString>());
    return {.windowID = facts.window,
            .applicationID = owner.applicationID.value_or(QString()),
            .title = facts.title,
            .frame = facts.frame.value_or(WindowRect()),
            .isMinimised = states.contains(WindowStates::minimised),
            .isFullScreen = states.contains(WindowStates::fullScreen),
            .isMaximised =
                states.contains(WindowStates::maximisedAcross) || states.contains(WindowStates::maximisedDown),
            .desktop = facts.desktop,
            .states = facts.states,
            .processID = owner.processID};
}

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
    std::vector<AllowedActions> questions;
    questions.reserve(clients.size());
    for (const xcb_window_t client : clients)
        questions.emplace_back(*m_connection, client);
    const QList<X11WindowFacts> facts = readWindowFacts(*m_connection, clients);
    QList<MovableWindow> windows;
    for (qsizetype i = 0; i < facts.size(); ++i) {
        MovableWindow window = movable(facts[i], owners.value(facts[i].window));
        questions[size_t(i)].read(*m_connection, facts[i], &window);
        if (facts[i].frame && facts[i].isOrdinary && !facts[i].isDialog)
            windows.append(window);
    }
    return windows;
}

QCoro::Task<QList<MoveResult>> X11WindowMover::move(QList<WindowMove> moves)
{
    X11Moves all(*m_connection, moves);
    co_return co_await all.run();
}

UserInput X11WindowMover::input()
{
    constexpr uint16_t buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    xcb_connection_t *const xcb = m_connection->xcb();
    X11Property active(*m_connection, m_connection->root(), X11Atom::NetActiveWindow);
    const auto askPointer = xcb_query_pointer(xcb, m_connection->root());
    const auto askKeys = xcb_query_keymap(xcb);
    const X11Reply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(xcb, askPointer, nullptr));
    const X11Reply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(xcb, askKeys, nullptr));
    UserInput input{.activeWindow = active.cardinal().value_or(XCB_NONE)};
    if (pointer) {
        input.x = pointer->root_x;
        input.y = pointer->root_y;
        input.isButtonDown = (pointer->mask & buttons) != 0;
    }
    input.isKeyDown =
        keys && std::any_of(std::begin(keys->keys), std::end(keys->keys), [](uint8_t eight) { return eight != 0; });
    return input;
}

} // namespace ardeno
