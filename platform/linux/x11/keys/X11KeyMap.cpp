// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/keys/X11KeyMap.h"

#include <span>

namespace ardeno {

namespace {

constexpr xcb_keysym_t numLock = 0xff7f;
constexpr xcb_keysym_t scrollLock = 0xff14;

} // namespace

X11KeyMap::X11KeyMap(const X11Connection &connection)
    : m_symbols(xcb_key_symbols_alloc(connection.xcb())),
      m_modifiers(xcb_get_modifier_mapping_reply(connection.xcb(), xcb_get_modifier_mapping(connection.xcb()), nullptr))
{
}

QList<xcb_keycode_t> X11KeyMap::keys(xcb_keysym_t symbol) const
{
    const X11Reply<xcb_keycode_t> found(m_symbols ? xcb_key_symbols_get_keycode(m_symbols.get(), symbol) : nullptr);
    QList<xcb_keycode_t> keys;
    for (const xcb_keycode_t *key = found.get(); key && *key != XCB_NO_SYMBOL; ++key)
        keys.append(*key);
    return keys;
}

quint16 X11KeyMap::modifier(xcb_keysym_t symbol) const
{
    if (!m_modifiers)
        return 0;
    const QList<xcb_keycode_t> wanted = keys(symbol);
    const std::span modifiers(xcb_get_modifier_mapping_keycodes(m_modifiers.get()),
                              static_cast<size_t>(xcb_get_modifier_mapping_keycodes_length(m_modifiers.get())));
    for (size_t i = 0; i < modifiers.size(); ++i) {
        if (wanted.contains(modifiers[i]))
            return static_cast<quint16>(1U << (i / m_modifiers->keycodes_per_modifier));
    }
    return 0;
}

QList<quint16> X11KeyMap::lockCombinations() const
{
    QList<quint16> combinations{0};
    for (const quint16 lock : {quint16(XCB_MOD_MASK_LOCK), modifier(numLock), modifier(scrollLock)}) {
        if (lock == 0 || combinations.contains(lock))
            continue;
        const QList<quint16> without = combinations;
        for (const quint16 other : without)
            combinations.append(static_cast<quint16>(other | lock));
    }
    return combinations;
}

} // namespace ardeno
