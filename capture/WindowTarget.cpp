// SPDX-License-Identifier: GPL-3.0-or-later
#include "capture/WindowTarget.h"

#include "capture/WindowPlacement.h"
#include "model/WindowStates.h"

#include <algorithm>

namespace ardeno::WindowLayout {

namespace {

using States = QList<QString>;

bool fillsDisplay(const States &states)
{
    return states.contains(WindowStates::fullScreen) ||
           (states.contains(WindowStates::maximisedAcross) && states.contains(WindowStates::maximisedDown));
}

bool hasSameStates(States a, States b)
{
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    return a == b;
}

States joined(States states, const States &others)
{
    for (const QString &state : others) {
        if (!states.contains(state))
            states.append(state);
    }
    return states;
}

// By its name, else by its number; what has neither today is gone.
std::optional<quint32> desktopOf(const SavedWindow &saved, const QList<QString> &desktops)
{
    const QString name = saved.desktopName.value_or(QString());
    if (!name.isEmpty() && desktops.count(name) == 1)
        return quint32(desktops.indexOf(name));
    const bool isThere = *saved.desktop >= 0 && *saved.desktop < desktops.size();
    return isThere ? std::optional(quint32(*saved.desktop)) : std::nullopt;
}

// Three quarters of the display around the middle of the frame, for a window that is to fill it.
WindowRect insideOf(const WindowRect &frame)
{
    return {frame.x + frame.width / 8, frame.y + frame.height / 8, frame.width * 3 / 4, frame.height * 3 / 4};
}

// The target of one window, put together step by step.
class Targeting final {
public:
    Targeting(const SavedWindow &saved, const MovableWindow &window, bool isNew, const WindowScene &scene)
        : m_saved(saved), m_window(window), m_scene(scene), m_isNew(isNew)
    {
    }

    WindowTarget run()
    {
        setStates();
        setDesktop();
        setFrame();
        return m_target;
    }

private:
    bool isKept() const { return !m_isNew && m_window.windowID == m_scene.activeWindow; }

    void setStates()
    {
        const States live = m_window.states.value_or(States());
        m_wanted = live;
        if (!m_saved.states)
            return;
        m_wanted = m_isNew ? *m_saved.states : joined(live, *m_saved.states);
        if (isKept() && m_wanted.contains(WindowStates::minimised)) {
            m_wanted.removeAll(WindowStates::minimised);
            m_target.isInUse = true;
        }
        if (!hasSameStates(m_wanted, live))
            m_move.states = m_wanted;
    }

    void setDesktop()
    {
        if (!m_saved.desktop || m_wanted.contains(WindowStates::onAllDesktops))
            return;
        const auto desktop = desktopOf(m_saved, m_scene.desktops);
        m_target.isDesktopGone = !desktop;
        if (!desktop || !m_window.desktop || desktop == m_window.desktop)
            return;
        if (isKept())
            m_target.isInUse = true;
        else
            m_move.desktop = desktop;
    }

    bool isOnRightDisplay(const WindowRect &fitting) const
    {
        return bestDisplay(m_window.frame, m_scene.displays) == bestDisplay(fitting, m_scene.displays);
    }

    void setFrame()
    {
        const auto fitting = WindowPlacement::fit(m_saved, m_scene.displays, m_scene.mainID);
        if (!fitting)
            return;
        bool isThere = WindowPlacement::isInPlace(m_window.frame, m_saved, m_scene.displays, m_scene.mainID);
        m_move.frame = *fitting;
        if (m_saved.states && fillsDisplay(*m_saved.states)) {
            isThere = isOnRightDisplay(*fitting);
            m_move.frame = insideOf(*fitting);
        }
        if (isThere)
            m_move.frame = m_window.frame;
        m_target.isReached = isThere && !m_move.states && !m_move.desktop;
        m_move.windowID = m_window.windowID;
        m_target.move = m_move;
    }

    const SavedWindow &m_saved;
    const MovableWindow &m_window;
    const WindowScene &m_scene;
    bool m_isNew;
    States m_wanted;
    WindowMove m_move;
    WindowTarget m_target;
};

} // namespace

WindowTarget targetOf(const SavedWindow &saved, const MovableWindow &window, bool isNew, const WindowScene &scene)
{
    return Targeting(saved, window, isNew, scene).run();
}

} // namespace ardeno::WindowLayout
