// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/WorkspaceRecords.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// A window that exists now: on any desktop of the desktop session, minimised or not.
struct LiveWindow {
    std::optional<qint32> processID = {};
    QString applicationID = {}; // Empty when it is not known.
    QString title = {};
    WindowRect frame = {};  // With decoration, without client-side shadows.
    WindowRect client = {}; // Without decoration, with such shadows.
    bool isAtFrame = true;  // False: maximised, minimised or full screen.
    quint32 windowID = 0;
    QString applicationName = {}; // Localised; empty when it has none.
    bool isDialog = false;        // It belongs to another window.
    bool isBrowser = false;       // Its application is a browser, or may be one.
    bool isMailProgram = false;
    QString busName = {};    // The application's connection on the session bus; empty when it is not known.
    QString objectPath = {}; // The window there; empty when it has none.

    bool operator==(const LiveWindow &) const = default;
};

// Answers all windows of the desktop session, or nothing where the desktop does not show them. Called on the main
// thread.
using LiveWindowList = std::function<std::optional<QList<LiveWindow>>()>;

} // namespace ardeno
