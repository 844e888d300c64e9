// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11WindowStates.h"

#include "platform/linux/x11/windows/X11Messages.h"

#include <algorithm>
#include <array>

namespace ardeno {

namespace {

struct StateWord {
    QLatin1String word;
    X11Atom atom;
    bool isRequestable; // With _NET_WM_STATE.
};

constexpr std::array stateWords = {
    StateWord{WindowStates::minimised, X11Atom::NetWmStateHidden, false},
    StateWord{WindowStates::fullScreen, X11Atom::NetWmStateFullscreen, true},
    StateWord{WindowStates::maximisedAcross, X11Atom::NetWmStateMaximizedHorz, true},
    StateWord{WindowStates::maximisedDown, X11Atom::NetWmStateMaximizedVert, true},
    StateWord{WindowStates::above, X11Atom::NetWmStateAbove, true},
    StateWord{WindowStates::onAllDesktops, X11Atom::NetWmStateSticky, false},
};

constexpr quint32 sourcePager = 2;

} // namespace

QList<QString> X11WindowStates::words(const X11Connection &connection, const QList<quint32> &state)
{
    // What is rolled up is called hidden, too.
    const bool isShaded = state.contains(connection.atom(X11Atom::NetWmStateShaded));
    QList<QString> words;
    for (const StateWord &known : stateWords) {
        const bool isRolledUp = isShaded && known.atom == X11Atom::NetWmStateHidden;
        if (state.contains(connection.atom(known.atom)) && !isRolledUp)
            words.append(known.word);
    }
    return words;
}

bool X11WindowStates::isRequestable(const QString &word)
{
    return std::any_of(stateWords.begin(), stateWords.end(),
                       [&](const StateWord &known) { return known.isRequestable && known.word == word; });
}

void X11WindowStates::request(const X11Connection &connection, xcb_window_t window, const QList<QString> &words,
                              bool isOn)
{
    QList<quint32> atoms;
    for (const StateWord &known : stateWords) {
        if (known.isRequestable && words.contains(known.word))
            atoms.append(connection.atom(known.atom));
    }
    // Two at once, so that a window is maximised in one step.
    for (qsizetype i = 0; i < atoms.size(); i += 2)
        X11Messages::toManager(connection, window, X11Atom::NetWmState,
                               {isOn ? 1U : 0U, atoms[i], atoms.value(i + 1), sourcePager, 0});
}

void X11WindowStates::requestMinimised(const X11Connection &connection, xcb_window_t window)
{
    constexpr quint32 iconic = 3;
    X11Messages::toManager(connection, window, X11Atom::WmChangeState, {iconic, 0, 0, 0, 0});
}

void X11WindowStates::requestDesktop(const X11Connection &connection, xcb_window_t window, quint32 desktop)
{
    X11Messages::toManager(connection, window, X11Atom::NetWmDesktop, {desktop, sourcePager, 0, 0, 0});
}

} // namespace ardeno
