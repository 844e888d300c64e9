// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/x11/windows/X11Connection.h"

#include <QString>

namespace ardeno {

// The extensions of the X server that pictures of the screen use. Asking is also what enables them on a connection.
struct X11Extensions {
    bool hasRender = false;
    bool hasComposite = false; // 0.2: the pixmap of a redirected window.
    bool hasFixes = false;     // 2: regions of windows, the cursor.
    bool hasDamage = false;
    bool hasSharedMemory = false;  // 1.2, which hands over descriptors.
    bool hasSharedPixmaps = false; // The server can draw into shared memory.
    quint8 firstDamageEvent = 0;

    // What is missing to leave windows out, by name; empty when nothing is.
    QString missingForExclusion() const;

    static X11Extensions of(const X11Connection &connection);
};

} // namespace ardeno
