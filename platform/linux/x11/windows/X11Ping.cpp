// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/X11Ping.h"

#include "platform/linux/x11/windows/X11Property.h"

#include <QCoroTimer>
#include <QElapsedTimer>

#include <chrono>
#include <vector>

namespace ardeno {

namespace {

using namespace std::chrono_literals;

constexpr qint64 patience = 400; // Milliseconds.

// Answers are sent to the root window; only a connection that listens there gets them, and nobody else's should. Most
// toolkits send them to those who are told of its windows, Qt to those who are told of the root window itself.
void listen(const X11Connection &connection)
{
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection.xcb(), connection.root(), XCB_CW_EVENT_MASK, &mask);
}

void ask(const X11Connection &connection, xcb_window_t window)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = connection.atom(X11Atom::WmProtocols);
    event.data.data32[0] = connection.atom(X11Atom::NetWmPing);
    event.data.data32[1] = XCB_CURRENT_TIME;
    event.data.data32[2] = window;
    xcb_send_event(connection.xcb(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&event));
}

QSet<xcb_window_t> askAll(const X11Connection &connection, const QList<xcb_window_t> &windows)
{
    std::vector<X11Property> protocols;
    protocols.reserve(windows.size());
    for (const xcb_window_t window : windows)
        protocols.emplace_back(connection, window, X11Atom::WmProtocols);
    QSet<xcb_window_t> asked;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        if (!protocols[i].cardinals().contains(connection.atom(X11Atom::NetWmPing)))
            continue;
        ask(connection, windows[i]);
        asked.insert(windows[i]);
    }
    xcb_flush(connection.xcb());
    return asked;
}

void removeAnswered(const X11Connection &connection, QSet<xcb_window_t> &silent)
{
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection.xcb())}) {
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
            continue;
        const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event.get());
        const bool isAnswer = message->type == connection.atom(X11Atom::WmProtocols) &&
                              message->data.data32[0] == connection.atom(X11Atom::NetWmPing);
        if (isAnswer)
            silent.remove(message->data.data32[2]);
    }
}

} // namespace

QCoro::Task<QSet<xcb_window_t>> X11Ping::silent(QList<xcb_window_t> windows)
{
    if (windows.isEmpty())
        co_return QSet<xcb_window_t>();
    const X11Connection connection; // Of its own, since it listens.
    listen(connection);
    QSet<xcb_window_t> silent = askAll(connection, windows);
    QElapsedTimer clock;
    clock.start();
    while (!silent.isEmpty() && connection.isAlive() && clock.elapsed() < patience) {
        co_await QCoro::sleepFor(2ms);
        removeAnswered(connection, silent);
    }
    co_return silent;
}

} // namespace ardeno
