// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "platform/linux/common/BrowserSession.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>

namespace ardeno {

// A window that exists now: on any desktop of the session, minimised or not.
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

// Answers all windows of the session, or nothing where the desktop does not show them. Called on the main thread.
using LiveWindowList = std::function<std::optional<QList<LiveWindow>>()>;

// What a browser shows as the title of a page: the address when it has none.
QString shownTitle(const SessionTab &tab);

// What has become of a window that a browser lists. A browser goes on listing its last ordinary window after it was
// closed while a window that is not recorded (a private one) stays open, and it writes changes down late.
enum class WindowFate {
    Open,
    Unknown, // A window of the browser may be this one, though nothing says so.
    Closed,  // Every window of the browser is certainly another one.
};

// Of each window of the session. A live window vouches for one window of the session at most, by its place or by the
// title of a page. That all are elsewhere proves nothing: browsers do not write every move down.
QList<WindowFate> fates(const QList<SessionWindow> &session, const QList<LiveWindow> &live);

// What the live windows show whose title names a page that a window of the session shows. Their place says too little:
// a private window may stand where an ordinary one does.
QHash<quint32, ShownPage> shownPages(const QList<SessionWindow> &session, const QList<LiveWindow> &live);

// Whether a window of Firefox says that it is a private one.
bool isMarkedPrivate(const QString &title);

// The live window that each window of the session is, in the same order; absent where another one is possible, too.
QList<std::optional<LiveWindow>> certainWindows(const QList<SessionWindow> &session, const QList<LiveWindow> &live);

} // namespace ardeno
