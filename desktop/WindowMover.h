// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "model/WorkspaceRecords.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>

namespace ardeno {

// An ordinary window of an application and no dialog, on any desktop of the desktop session, minimised or not.
struct MovableWindow {
    quint32 windowID = 0;
    QString applicationID = {}; // Empty when it is not known.
    QString title = {};
    WindowRect frame = {}; // Incl. decoration, without client-side shadows.
    bool isMinimised = false;
    bool isFullScreen = false;
    bool isMaximised = false;
    bool canMove = true;
    bool canResize = true;

    bool operator==(const MovableWindow &) const = default;
};

// Where a window shall go.
struct WindowMove {
    quint32 windowID = 0;
    WindowRect frame = {}; // As in MovableWindow.

    bool operator==(const WindowMove &) const = default;
};

enum class MoveResult {
    Placed,       // Within a pixel, or as near as the sizes that the application allows.
    NotAnswering, // The application hangs; nothing was tried.
    Refused,      // It did not go there, or has gone.
};

// Moves the windows of other applications.
class WindowMover {
public:
    virtual ~WindowMover() = default;

    // NeedsConsent: the user has not allowed it yet.
    virtual Capability availability() const = 0;

    // Asks the user, where the desktop has such a question; answers at once.
    virtual void ask() {}

    // Answers at once.
    virtual QList<MovableWindow> windows() = 0;
    // The results in the order of the moves. Sets the size first, then the position. An application that does not
    // answer costs at most 0.4 s, all together.
    virtual QCoro::Task<QList<MoveResult>> move(QList<WindowMove> moves) = 0;
};

} // namespace ardeno
