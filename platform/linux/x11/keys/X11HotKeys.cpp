// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/keys/X11HotKeys.h"

#include "platform/linux/x11/keys/X11KeyMap.h"
#include "platform/linux/x11/windows/X11Event.h"

#include <cstdlib>
#include <utility>
#include <vector>

namespace ardeno {

namespace {

constexpr xcb_keysym_t letterS = 's';
constexpr xcb_keycode_t placeOfS = 39; // Of keyboards whose layouts have no such letter.
constexpr xcb_keysym_t superKey = 0xffeb;
constexpr xcb_keysym_t altKey = 0xffe9;

quint16 modifierMask(const X11KeyMap &map, HotKeys::Combination keys)
{
    const auto of = [&map](xcb_keysym_t symbol, quint16 otherwise) {
        const quint16 found = map.modifier(symbol);
        return found ? found : otherwise;
    };
    const quint16 super = of(superKey, XCB_MOD_MASK_4);
    if (keys == HotKeys::Combination::ShiftSuperS)
        return XCB_MOD_MASK_SHIFT | super;
    return XCB_MOD_MASK_CONTROL | of(altKey, XCB_MOD_MASK_1) | super;
}

} // namespace

X11HotKeys::~X11HotKeys()
{
    release();
}

void X11HotKeys::listen(Combination keys, Listener listener)
{
    release();
    connect();
    m_keys = keys;
    grab();
    m_listener = std::make_shared<const Listener>(std::move(listener));
}

void X11HotKeys::release()
{
    m_listener.reset();
    if (m_connection)
        ungrab();
}

void X11HotKeys::connect()
{
    if (m_connection && m_connection->isAlive())
        return;
    m_notifier.reset();
    m_connection = std::make_unique<X11Connection>();
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection->xcb()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readEvents(); });
}

void X11HotKeys::grab()
{
    const X11KeyMap map(*m_connection);
    QList<xcb_keycode_t> keys = map.keys(letterS);
    if (keys.isEmpty())
        keys.append(placeOfS);
    const quint16 mask = modifierMask(map, m_keys);
    std::vector<xcb_void_cookie_t> cookies;
    for (const xcb_keycode_t key : std::as_const(keys)) {
        for (const quint16 locks : map.lockCombinations())
            cookies.push_back(xcb_grab_key_checked(m_connection->xcb(), 1, m_connection->root(), mask | locks, key,
                                                   XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool isRefused = false;
    for (const xcb_void_cookie_t cookie : cookies) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(m_connection->xcb(), cookie));
        isRefused = isRefused || error;
    }
    if (!isRefused && m_connection->isAlive()) {
        // Events that were read together with the replies are queued: the socket will not signal them again.
        QMetaObject::invokeMethod(m_notifier.get(), [this] { readEvents(); }, Qt::QueuedConnection);
        return;
    }
    ungrab();
    throw Failure("HotKeys", 1, u"Another program has these keys."_qs);
}

// Others can have the keys as soon as this returns.
void X11HotKeys::ungrab() const
{
    xcb_connection_t *xcb = m_connection->xcb();
    const xcb_void_cookie_t done = xcb_ungrab_key_checked(xcb, XCB_GRAB_ANY, m_connection->root(), XCB_MOD_MASK_ANY);
    std::free(xcb_request_check(xcb, done));
}

void X11HotKeys::readEvents()
{
    bool isPressed = false;
    bool isLaidOutAnew = false;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection->xcb())}) {
        const int type = eventType(*event);
        isPressed = isPressed || type == XCB_KEY_PRESS;
        isLaidOutAnew = isLaidOutAnew || type == XCB_MAPPING_NOTIFY;
    }
    if (!m_connection->isAlive())
        m_notifier->setEnabled(false);
    if (!m_listener)
        return;
    if (isLaidOutAnew)
        grabAgain();
    if (!isPressed || !m_listener)
        return;
    // The keyboard belongs to whoever is shown now, also before the keys are up again.
    xcb_ungrab_keyboard(m_connection->xcb(), XCB_CURRENT_TIME);
    xcb_flush(m_connection->xcb());
    const std::shared_ptr<const Listener> listener = m_listener; // It may end the listening.
    listener->pressed();
}

// The letter may be on another key now.
void X11HotKeys::grabAgain()
{
    ungrab();
    try {
        grab();
    } catch (const Failure &failure) {
        const std::shared_ptr<const Listener> listener = std::exchange(m_listener, nullptr);
        if (listener->lost)
            listener->lost(failure);
    }
}

} // namespace ardeno
