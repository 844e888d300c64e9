// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/keys/X11KeyMap.h"

namespace ardeno {

namespace {

constexpr int modifierCount = 8;
constexpr xcb_keysym_t numLock = 0xff7f;
constexpr xcb_keysym_t scrollLock = 0xff14;

} // namespace

X11KeyMap::X11KeyMap(const X11Connection &connection) : m_firstKey(xcb_get_setup(connection.xcb())->min_keycode)
{
    const int count = xcb_get_setup(connection.xcb())->max_keycode - m_firstKey + 1;
    const auto symbolsCookie = xcb_get_keyboard_mapping(connection.xcb(), m_firstKey, static_cast<uint8_t>(count));
    const auto modifiersCookie = xcb_get_modifier_mapping(connection.xcb());
    const X11Reply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection.xcb(), symbolsCookie, nullptr));
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection.xcb(), modifiersCookie, nullptr));
    if (!symbols || !modifiers)
        return;
    m_symbolsPerKey = symbols->keysyms_per_keycode;
    const xcb_keysym_t *const first = xcb_get_keyboard_mapping_keysyms(symbols.get());
    m_symbols = {first, first + xcb_get_keyboard_mapping_keysyms_length(symbols.get())};
    m_keysPerModifier = modifiers->keycodes_per_modifier;
    const xcb_keycode_t *const firstModifier = xcb_get_modifier_mapping_keycodes(modifiers.get());
    m_modifiers = {firstModifier, firstModifier + xcb_get_modifier_mapping_keycodes_length(modifiers.get())};
}

QList<xcb_keycode_t> X11KeyMap::keys(xcb_keysym_t symbol) const
{
    QList<xcb_keycode_t> found;
    for (qsizetype at = m_symbols.indexOf(symbol); at >= 0; at = m_symbols.indexOf(symbol, at + 1)) {
        const auto key = static_cast<xcb_keycode_t>(m_firstKey + at / m_symbolsPerKey);
        if (!found.contains(key))
            found.append(key);
    }
    return found;
}

quint16 X11KeyMap::modifier(xcb_keysym_t symbol) const
{
    const QList<xcb_keycode_t> wanted = keys(symbol);
    for (qsizetype i = 0; i < m_modifiers.size(); ++i) {
        if (wanted.contains(m_modifiers.at(i)))
            return static_cast<quint16>(1U << (i / m_keysPerModifier % modifierCount));
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
