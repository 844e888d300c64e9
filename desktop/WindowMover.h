// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Capability.h"
#include "model/WorkspaceRecords.h"

#include <QCoroTask>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace ardeno {

// An ordinary window of an application and no dialog, on any desktop of the desktop session, minimised or not.
struct MovableWindow {
    quint32 windowID = 0;
    QString applicationID = {}; // Empty when it is not known.
    QString title = {};
    WindowRect frame = {}; // Incl. decoration, without client-side shadows.
    bool isMinimised = false;
    bool isFullScreen = false;
    bool isMaximised = false; // In either way.
    bool canMove = true;
    bool canResize = true;
    std::optional<quint32> desktop = {};       // The number of its virtual desktop; absent on all of them.
    std::optional<QList<QString>> states = {}; // Words of WindowStates; absent when they are not known.
    std::optional<qint32> processID = {};

    bool operator==(const MovableWindow &) const = default;
};

// Where a window shall go, and how it shall stand there.
struct WindowMove {
    quint32 windowID = 0;
    WindowRect frame = {};                     // As in MovableWindow; before it is maximised or full screen.
    std::optional<quint32> desktop = {};       // Absent: where it is.
    std::optional<QList<QString>> states = {}; // Absent: as they are.

    bool operator==(const WindowMove &) const = default;
};

enum class MoveResult {
    Placed,       // Within a pixel, or as near as the sizes that the application allows.
    NotAnswering, // It did not go there, and its application does not answer.
    Refused,      // It did not go there, or has gone.
};

// What the user's hands do at this moment.
struct UserInput {
    double x = 0; // Of the pointer.
    double y = 0;
    bool isButtonDown = false;
    bool isKeyDown = false;
    quint32 activeWindow = 0; // Which keys go to.

    bool operator==(const UserInput &) const = default;
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

    // Answers at once.
    virtual UserInput input() { return {}; }

    // The results in the order of the moves. Sets the size first, then the position, then how the window stands and
    // its desktop; the user's current desktop stays. Windows that do not go cost at most some seconds, all together.
    virtual QCoro::Task<QList<MoveResult>> move(QList<WindowMove> moves) = 0;
};

} // namespace ardeno
