// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserState.h"

#include <QByteArrayView>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace ardeno::SnssReader {

// What a file says of the windows of its time.
struct Session {
    QList<ListedWindow> windows = {}; // Those that are open, in the order of their identifiers; without empty ones.
    QSet<QString> closed = {};        // The identifiers of those that were closed.
};

// Of a state file of the Chromium family. Absent when the bytes are no such file, an encrypted one, or do not hold a
// whole initial state (the browser has only begun to write). Any bytes are survived; a damaged end is ignored.
std::optional<Session> read(QByteArrayView file);

} // namespace ardeno::SnssReader
