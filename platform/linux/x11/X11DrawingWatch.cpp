// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/X11DrawingWatch.h"

#include <vector>

namespace ardeno {

namespace {

void selectStructure(const X11Connection &connection, xcb_window_t window, quint32 mask)
{
    xcb_change_window_attributes(connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace

void X11DrawingWatch::start(xcb_window_t topLevel)
{
    if (m_watched.contains(topLevel))
        return distrustUntilNow(topLevel);
    Watched watched;
    // First the moves, then the drawing: whatever was moved before that is not taken for drawn.
    followTree(watched, topLevel);
    watched.damage = xcb_generate_id(m_connection.xcb());
    xcb_damage_create(m_connection.xcb(), watched.damage, topLevel, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    watched.trustedFrom = mark();
    m_watched.insert(topLevel, watched);
}

void X11DrawingWatch::stop(xcb_window_t topLevel)
{
    const auto watched = m_watched.constFind(topLevel);
    if (watched == m_watched.cend())
        return;
    xcb_damage_destroy(m_connection.xcb(), watched->damage);
    for (const xcb_window_t window : watched->tree)
        selectStructure(m_connection, window, XCB_EVENT_MASK_NO_EVENT);
    m_watched.erase(watched);
}

void X11DrawingWatch::distrustUntilNow(xcb_window_t topLevel)
{
    const auto watched = m_watched.find(topLevel);
    if (watched != m_watched.end())
        watched->trustedFrom = mark();
}

void X11DrawingWatch::distrustBelow(xcb_window_t parent, xcb_window_t child)
{
    for (Watched &watched : m_watched) {
        if (!watched.tree.contains(parent))
            continue;
        if (!watched.tree.contains(child))
            followTree(watched, child);
        watched.trustedFrom = mark();
    }
}

bool X11DrawingWatch::isDrawing(const xcb_damage_notify_event_t &event, quint32 sequence) const
{
    const auto watched = m_watched.constFind(event.drawable);
    return watched != m_watched.cend() && watched->damage == event.damage &&
           qint32(sequence - watched->trustedFrom) >= 0; // The numbers wrap around.
}

void X11DrawingWatch::followTree(Watched &watched, xcb_window_t from) const
{
    xcb_connection_t *xcb = m_connection.xcb();
    QList<xcb_window_t> level = {from};
    while (!level.isEmpty()) {
        std::vector<xcb_query_tree_cookie_t> asked;
        for (const xcb_window_t window : level) {
            selectStructure(m_connection, window, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
            asked.push_back(xcb_query_tree(xcb, window));
        }
        watched.tree += level;
        level.clear();
        for (const auto cookie : asked) {
            const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(xcb, cookie, nullptr));
            if (!tree)
                continue;
            const xcb_window_t *children = xcb_query_tree_children(tree.get());
            level += QList<xcb_window_t>(children, children + xcb_query_tree_children_length(tree.get()));
        }
    }
}

// What the server reports after this request bears at least its number.
quint32 X11DrawingWatch::mark() const
{
    const quint32 sequence = xcb_no_operation(m_connection.xcb()).sequence;
    xcb_flush(m_connection.xcb());
    return sequence;
}

} // namespace ardeno
