// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/TabSource.h"
#include "model/WorkspaceRecords.h"

#include <QString>

// The texts that a scripting desktop is asked to run. Lines end with a line feed; the last one has none.
namespace ardeno::AppleScripts {

// Answers the open tabs of a browser in the format of TabRecords. Only the Chromium script leaves out private windows.
QString openTabs(const Browser &browser);

// Opens the tab's page in the window it was saved from, found by the browser's identifier of it, else by its number.
// The tab has a safe address.
QString openTabInSavedWindow(const SavedTab &tab, const QString &browserID);

} // namespace ardeno::AppleScripts
