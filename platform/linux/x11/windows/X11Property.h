// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// A property that has been asked for and is read later, so that many are asked for in one round trip. Move only; each
// is read once. A window that has gone has no properties.
class X11Property final {
public:
    X11Property(const X11Connection &connection, xcb_window_t window, xcb_atom_t name);

    X11Property(const X11Connection &connection, xcb_window_t window, X11Atom name)
        : X11Property(connection, window, connection.atom(name))
    {
    }

    X11Property(X11Property &&other) noexcept;
    X11Property &operator=(X11Property &&) = delete;
    ~X11Property();

    // The text in whatever encoding it was set (UTF-8, Latin-1, compound text); absent when it is no text. Control
    // characters are kept, bytes that mean nothing become U+FFFD.
    std::optional<QString> text();
    // WM_CLASS and the like: texts that each end in a zero byte.
    QList<QString> texts();
    // Cardinals, atoms and windows; empty when the property is missing or not of 32 bits.
    QList<quint32> cardinals();
    // The same, but absent when the property is missing.
    std::optional<QList<quint32>> cardinalsIfSet();
    // Its first cardinal.
    std::optional<quint32> cardinal();

private:
    X11Reply<xcb_get_property_reply_t> take();

    const X11Connection *m_connection;
    std::optional<xcb_get_property_cookie_t> m_cookie;
};

} // namespace ardeno
