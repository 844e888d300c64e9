// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>

namespace ardeno {

// Which keys and modifiers stand for what, as the keyboard is laid out now.
class X11KeyMap final {
public:
    explicit X11KeyMap(const X11Connection &connection);

    // The keys that write this symbol, in any of the layouts.
    QList<xcb_keycode_t> keys(xcb_keysym_t symbol) const;
    // The mask of the modifier that a key of this symbol is; 0 when there is none.
    quint16 modifier(xcb_keysym_t symbol) const;
    // All combinations of the locks, which are to make no difference.
    QList<quint16> lockCombinations() const;

private:
    xcb_keycode_t m_firstKey;
    int m_symbolsPerKey = 0;
    QList<xcb_keysym_t> m_symbols = {};
    int m_keysPerModifier = 0;
    QList<xcb_keycode_t> m_modifiers = {};
};

} // namespace ardeno
