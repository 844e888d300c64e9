// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/common/BrowserSession.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// A window that exists now: on any desktop of the session, minimised or not.
struct LiveWindow {
    std::optional<qint32> processID = {};
    QString applicationID = {}; // Empty when it is not known.
    QString title = {};
    WindowRect frame = {}; // With decoration, without client-side shadows.
    quint32 windowID = 0;
    QString applicationName = {}; // Localised; empty when it has none.
    bool isDialog = false;        // It belongs to another window.
    bool isBrowser = false;       // Its application is a browser, or may be one.
    bool isMailProgram = false;
    QString busName = {};    // The application's connection on the session bus; empty when it is not known.
    QString objectPath = {}; // The window there; empty when it has none.

    bool operator==(const LiveWindow &) const = default;
};

// Answers all windows of the session, or nothing where the desktop does not show them. Called on the main thread.
using LiveWindowList = std::function<std::optional<QList<LiveWindow>>()>;

// What a browser shows as the title of a page: the address when it has none.
QString shownTitle(const SessionTab &tab);

// The session's windows that still exist. A browser goes on listing its last ordinary window after it was closed while
// a window that is not recorded (a private one) stays open; each live window vouches for one window of the session at
// most, by its title or by its place.
QList<SessionWindow> withoutGhosts(const QList<SessionWindow> &session, const QList<LiveWindow> &live);

// The live windows that show in their title the page of a window of the session. Its place says too little: a private
// window may stand where an ordinary one does.
QSet<quint32> windowsOfPages(const QList<SessionWindow> &session, const QList<LiveWindow> &live);

// The live window that a session's window is; absent unless nothing else is possible.
std::optional<LiveWindow> certainWindow(const SessionWindow &window, const QList<SessionWindow> &session,
                                        const QList<LiveWindow> &live);

} // namespace ardeno
