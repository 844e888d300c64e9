// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/InheritedPixels.h"

#include <algorithm>
#include <utility>

namespace ardeno {

namespace {

// How long the place that a window has left may still show it.
constexpr auto traceTime = std::chrono::seconds(1);

} // namespace

void InheritedPixels::add(Window id, const QRect &outer, bool isMapped)
{
    m_windows.insert(id, {outer, isMapped, {}});
}

void InheritedPixels::remove(Window id)
{
    unmap(id);
    m_windows.remove(id);
    forgetSource(id);
}

void InheritedPixels::meet(Window id, Window other)
{
    const auto window = m_windows.find(id);
    if (window != m_windows.end())
        inherit(*window, other, m_windows.value(other).outer);
}

void InheritedPixels::map(Window id)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end() || window->isMapped)
        return;
    window->isMapped = true;
    inheritScreen(id, *window);
}

void InheritedPixels::unmap(Window id)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end() || !window->isMapped)
        return;
    leaveTrace(id, window->outer);
    window->isMapped = false;
    window->parts.clear();
}

void InheritedPixels::place(Window id, const QRect &outer)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end() || window->outer == outer)
        return;
    const bool isNewPixmap = window->isMapped && window->outer.size() != outer.size();
    if (window->isMapped)
        leaveTrace(id, window->outer);
    window->outer = outer;
    if (!isNewPixmap)
        return;
    // The old pixels may have been taken over to any part of the new pixmap.
    for (Part &part : window->parts)
        part.region = QRect(QPoint(0, 0), outer.size());
    inheritScreen(id, *window);
}

void InheritedPixels::draw(Window id, const QRect &area)
{
    const auto window = m_windows.find(id);
    if (window == m_windows.end())
        return;
    for (Part &part : window->parts)
        part.region.subtract(area);
    window->parts.removeIf([](const Part &part) { return part.region.isEmpty(); });
}

QRect InheritedPixels::placeOf(Window id) const
{
    const auto window = m_windows.constFind(id);
    return window != m_windows.cend() && window->isMapped ? window->outer : QRect();
}

X11Region InheritedPixels::inheritedBy(Window id) const
{
    return untrusted(id, {});
}

X11Region InheritedPixels::untrusted(Window id, const QSet<Window> &allowed) const
{
    X11Region region;
    const auto window = m_windows.constFind(id);
    if (window == m_windows.cend())
        return region;
    for (const Part &part : window->parts) {
        if (!allowed.contains(part.source))
            region.add(part.region);
    }
    return region;
}

void InheritedPixels::inherit(State &state, Window source, const X11Region &area)
{
    const X11Region common = area.intersected(state.outer).translated(-state.outer.topLeft());
    if (common.isEmpty())
        return;
    const auto isSame = [&](const Part &part) { return part.source == source; };
    const auto present = std::find_if(state.parts.begin(), state.parts.end(), isSame);
    if (present == state.parts.end())
        state.parts.append({source, common});
    else
        present->region.add(common);
}

// Whatever the place shows, it is of a window there now or a moment ago, or what such a window itself has inherited.
void InheritedPixels::inheritScreen(Window id, State &state)
{
    for (const Trace &trace : std::as_const(m_traces)) {
        if (trace.source != id)
            inherit(state, trace.source, trace.outer);
    }
    for (auto other = m_windows.cbegin(); other != m_windows.cend(); ++other) {
        if (other.key() == id || !other->isMapped)
            continue;
        inherit(state, other.key(), other->outer);
        for (const Part &part : other->parts)
            inherit(state, part.source, part.region.translated(other->outer.topLeft()));
    }
}

void InheritedPixels::leaveTrace(Window source, const QRect &outer)
{
    const Clock::time_point now = Clock::now();
    m_traces.removeIf([&](const Trace &trace) {
        return trace.left + traceTime < now || (trace.source == source && trace.outer == outer);
    });
    m_traces.append({source, outer, now});
}

void InheritedPixels::forgetSource(Window id)
{
    const QList<Trace> traces = m_traces;
    for (const Trace &trace : traces) {
        if (trace.source == id)
            leaveTrace(unknown, trace.outer);
    }
    m_traces.removeIf([&](const Trace &trace) { return trace.source == id; });
    for (State &state : m_windows) {
        const auto isGone = [&](const Part &part) { return part.source == id; };
        const auto part = std::find_if(state.parts.begin(), state.parts.end(), isGone);
        if (part == state.parts.end())
            continue;
        const X11Region region = part->region.translated(state.outer.topLeft());
        state.parts.erase(part);
        inherit(state, unknown, region);
    }
}

} // namespace ardeno
