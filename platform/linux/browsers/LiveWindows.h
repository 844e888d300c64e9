// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "platform/linux/browsers/BrowserState.h"
#include "platform/linux/running/LiveWindow.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace ardeno {

// What a browser shows as the title of a page: the address when it has none.
QString shownTitle(const ListedTab &tab);

// What has become of a window that a browser lists. A browser goes on listing its last ordinary window after it was
// closed while a window that is not recorded (a private one) stays open, and it writes changes down late.
enum class WindowFate {
    Open,
    Unknown, // A window of the browser may be this one, though nothing says so.
    Closed,  // Every window of the browser is certainly another one.
};

// Of each window of the browser state. A live window vouches for one window of the browser state at most, by its place
// or by the title of a page. That all are elsewhere proves nothing: browsers do not write every move down.
QList<WindowFate> fates(const QList<ListedWindow> &session, const QList<LiveWindow> &live);

// What the live windows show whose title names a page that a window of the browser state shows. Their place says too
// little: a private window may stand where an ordinary one does.
QHash<quint32, ShownPage> shownPages(const QList<ListedWindow> &session, const QList<LiveWindow> &live);

// Whether a window of Firefox says that it is a private one.
bool isMarkedPrivate(const QString &title);

// The live window that each window of the browser state is, in the same order; absent where another one is possible,
// too.
QList<std::optional<LiveWindow>> certainWindows(const QList<ListedWindow> &session, const QList<LiveWindow> &live);

} // namespace ardeno
