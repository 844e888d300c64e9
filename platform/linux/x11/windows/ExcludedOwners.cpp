// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/ExcludedOwners.h"

namespace ardeno {

namespace {

template <typename Key>
std::optional<QString> valueOf(const QHash<Key, QString> &values, Key key)
{
    const auto found = values.constFind(key);
    return found == values.cend() ? std::nullopt : std::optional(*found);
}

} // namespace

ExcludedOwners::ExcludedOwners(const QHash<xcb_window_t, JudgedWindow> &windows,
                               const ApplicationIdentification &identification, quint32 numberMask)
    : m_windows(windows), m_mask(numberMask), m_any(identification.anyExcluded())
{
    for (const JudgedWindow &window : windows) {
        const Judgement own = identification.excludedBy(window.identity);
        m_clients.insert(window.hints.client, own);
        m_leaders.insert(window.hints.client, window.hints.leader);
        if (!own)
            continue;
        m_connections.insert(window.hints.client & ~m_mask, *own);
        if (window.hints.peer)
            m_processes.insert(*window.hints.peer, *own);
    }
    for (const JudgedWindow &window : windows) {
        if (!m_clients.value(window.hints.client))
            m_clients.insert(window.hints.client, byProcess(window));
    }
    for (const JudgedWindow &window : windows) {
        const Judgement drawnFor = byLeaders(window);
        if (drawnFor && window.hints.peer)
            m_dialogProcesses.insert(*window.hints.peer, *drawnFor);
    }
}

ExcludedOwners::Judgement ExcludedOwners::byProcess(const JudgedWindow &window) const
{
    const X11WindowHints &hints = window.hints;
    const Judgement process = hints.peer ? valueOf(m_processes, *hints.peer) : std::nullopt;
    if (!hints.isManaged && process)
        return process; // Of which of its applications, a process with several does not say.
    if (window.identity.entry)
        return std::nullopt;
    // Programs that ask for passwords make their dialogs those of the whole screen.
    const bool isForAnybody = hints.leader != XCB_NONE && !m_clients.contains(hints.leader);
    if (!hints.peer || isForAnybody)
        return m_any;
    return process ? process : valueOf(m_connections, hints.client & ~m_mask);
}

ExcludedOwners::Judgement ExcludedOwners::byLeaders(const JudgedWindow &window) const
{
    constexpr int mostLeaders = 8; // They may go round in circles.
    xcb_window_t leader = window.hints.leader;
    for (int i = 0; i < mostLeaders && leader != XCB_NONE; ++i) {
        const auto known = m_clients.constFind(leader);
        if (known == m_clients.cend())
            return valueOf(m_connections, leader & ~m_mask);
        if (*known)
            return *known;
        leader = m_leaders.value(leader, XCB_NONE);
    }
    return std::nullopt;
}

std::optional<QString> ExcludedOwners::of(xcb_window_t window) const
{
    const JudgedWindow judged = m_windows.value(window);
    if (const Judgement own = m_clients.value(judged.hints.client))
        return own;
    if (const Judgement drawnFor = byLeaders(judged))
        return drawnFor;
    const bool isPopup = !judged.hints.isManaged && judged.hints.peer;
    return isPopup ? valueOf(m_dialogProcesses, *judged.hints.peer) : std::nullopt;
}

} // namespace ardeno
