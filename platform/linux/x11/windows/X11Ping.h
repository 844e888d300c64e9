// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QCoroTask>
#include <QList>
#include <QSet>

#include <memory>

namespace ardeno {

// Asks applications whether they still look at their messages.
class X11Ping final {
public:
    // Those of the windows whose application supports the question and does not answer it within 0.4 s, all together.
    // An application that does not support it is given the benefit of the doubt. Throws Failure when the X server
    // cannot be reached.
    static QCoro::Task<QSet<xcb_window_t>> silent(QList<xcb_window_t> windows);
};

} // namespace ardeno
