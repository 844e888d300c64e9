// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "desktop/WindowLocation.h"

#include <QCoroTask>
#include <QList>

namespace ardeno {

// The folders that the desktop's file browsers show. Used on the main thread; outlives the tasks it gave out.
class FileBrowser {
public:
    virtual ~FileBrowser() = default;

    virtual Capability availability() const = 0;
    // Of all windows, also of those that are minimised; windows whose folder is not known for certain are missing.
    // Never throws, and waits for nobody longer than about a second.
    virtual QCoro::Task<QList<WindowLocation>> locations() = 0;
};

} // namespace ardeno
