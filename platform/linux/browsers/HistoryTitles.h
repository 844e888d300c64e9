// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/browsers/BrowserState.h"

#include <QList>
#include <QString>

namespace ardeno {

// Gives the pages that have no title the one that a history database of the Chromium family knows for their address.
// The browser holds the database locked, so it is read as it lies on the disk; what cannot be read changes nothing.
void fillTitles(QList<ListedWindow> &windows, const QString &databasePath);

} // namespace ardeno
