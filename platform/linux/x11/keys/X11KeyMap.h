// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>

#include <xcb/xcb_keysyms.h>

#include <memory>

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
    struct FreeSymbols {
        void operator()(xcb_key_symbols_t *symbols) const { xcb_key_symbols_free(symbols); }
    };

    std::unique_ptr<xcb_key_symbols_t, FreeSymbols> m_symbols;
    X11Reply<xcb_get_modifier_mapping_reply_t> m_modifiers;
};

} // namespace ardeno
