// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ScreenCapture.h"

#include <QCoroTask>
#include <QSet>
#include <QString>

namespace ardeno {

// Pictures of the screen as checkpoints keep them. Lives on the main thread and outlives the tasks it gave out.
class CaptureService final {
public:
    // The screen belongs to the desktop and outlives the service.
    explicit CaptureService(ScreenCapture &screen) : m_screen(screen) {}

    // Writes one PNG of all displays side by side (mode 0600, replaced as a whole), without the windows of these
    // applications and of this program. Throws Failure: domain "Capture", the file system's, or the desktop's own;
    // nothing is written before the whole picture exists.
    QCoro::Task<void> screenshot(QString path, QSet<QString> excludingAppIDs);

    // Returns when pictures of the screen may be taken now; throws Failure otherwise.
    QCoro::Task<void> verifyAccess();

private:
    ScreenCapture &m_screen;
};

} // namespace ardeno
