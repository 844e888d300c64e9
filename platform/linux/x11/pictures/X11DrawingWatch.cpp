// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/pictures/X11DrawingWatch.h"

#include <algorithm>

#include <xcb/xcbext.h>

namespace ardeno {

void X11DrawingWatch::follow(xcb_window_t topLevel)
{
    if (!m_followed.contains(topLevel))
        ask(m_followed[topLevel], topLevel, topLevel);
}

void X11DrawingWatch::start(xcb_window_t topLevel)
{
    follow(topLevel);
    Followed &followed = m_followed[topLevel];
    if (followed.damage == XCB_NONE) {
        followed.damage = xcb_generate_id(m_connection.xcb());
        xcb_damage_create(m_connection.xcb(), followed.damage, topLevel, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    }
    trustFromNow(followed);
}

void X11DrawingWatch::stop(xcb_window_t topLevel)
{
    const auto followed = m_followed.find(topLevel);
    if (followed == m_followed.end() || followed->damage == XCB_NONE)
        return;
    xcb_damage_destroy(m_connection.xcb(), followed->damage);
    followed->damage = XCB_NONE;
}

void X11DrawingWatch::forget(xcb_window_t topLevel)
{
    stop(topLevel);
    const Followed followed = m_followed.take(topLevel);
    for (const xcb_window_t window : followed.tree)
        m_topLevelOf.remove(window);
    for (const quint32 question : followed.questions)
        xcb_discard_reply(m_connection.xcb(), question);
}

void X11DrawingWatch::distrustUntilNow(xcb_window_t topLevel)
{
    const auto followed = m_followed.find(topLevel);
    if (followed != m_followed.end() && followed->damage != XCB_NONE)
        trustFromNow(*followed);
}

void X11DrawingWatch::distrustBelow(xcb_window_t parent, xcb_window_t child)
{
    const xcb_window_t topLevel = m_topLevelOf.value(parent, XCB_NONE);
    const auto followed = m_followed.find(topLevel);
    if (followed == m_followed.end())
        return;
    if (!followed->tree.contains(child))
        ask(*followed, topLevel, child);
    distrustUntilNow(topLevel);
}

void X11DrawingWatch::forgetBelow(xcb_window_t child)
{
    const auto followed = m_followed.find(m_topLevelOf.take(child));
    if (followed != m_followed.end())
        followed->tree.remove(child);
}

void X11DrawingWatch::readAnswers()
{
    for (auto followed = m_followed.begin(); followed != m_followed.end(); ++followed) {
        while (!followed->questions.isEmpty() && readAnswer(followed.key(), *followed))
            continue;
    }
}

bool X11DrawingWatch::hasQuestions() const
{
    return std::any_of(m_followed.cbegin(), m_followed.cend(),
                       [](const Followed &followed) { return !followed.questions.isEmpty(); });
}

bool X11DrawingWatch::isDrawing(const xcb_damage_notify_event_t &event, quint32 sequence) const
{
    const auto followed = m_followed.constFind(event.drawable);
    return followed != m_followed.cend() && followed->damage == event.damage && followed->trustedFrom &&
           qint32(sequence - *followed->trustedFrom) >= 0; // The numbers wrap around.
}

// First the moves, then the children: one that comes in between is reported.
void X11DrawingWatch::ask(Followed &followed, xcb_window_t topLevel, xcb_window_t window)
{
    const quint32 mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.xcb(), window, XCB_CW_EVENT_MASK, &mask);
    followed.questions.append(xcb_query_tree(m_connection.xcb(), window).sequence);
    followed.tree.insert(window);
    m_topLevelOf.insert(window, topLevel);
}

// Reads the first answer; false when it has not come yet.
bool X11DrawingWatch::readAnswer(xcb_window_t topLevel, Followed &followed)
{
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    if (xcb_poll_for_reply(m_connection.xcb(), followed.questions.first(), &answer, &error) == 0)
        return false;
    const X11Reply<xcb_query_tree_reply_t> tree(static_cast<xcb_query_tree_reply_t *>(answer));
    const X11Reply<xcb_generic_error_t> ownedError(error);
    followed.questions.removeFirst();
    const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
    for (int i = 0; i < count; ++i) {
        const xcb_window_t child = xcb_query_tree_children(tree.get())[i];
        if (!followed.tree.contains(child))
            ask(followed, topLevel, child);
    }
    if (followed.questions.isEmpty() && followed.damage != XCB_NONE)
        trustFromNow(followed);
    return true;
}

// What the server reports after this request bears at least its number.
void X11DrawingWatch::trustFromNow(Followed &followed) const
{
    followed.trustedFrom.reset();
    if (followed.questions.isEmpty())
        followed.trustedFrom = xcb_no_operation(m_connection.xcb()).sequence;
}

} // namespace ardeno
